#include "failing_allocation.h"

#include <cstddef>
#include <new>

namespace {

FailingAllocation *failing = nullptr;

bool fails_now() {
    return failing != nullptr && failing->count_allocation();
}

} // namespace

FailingAllocation::FailingAllocation(int nth, bool all_later)
    : countdown_(nth), all_later_(all_later) {
    failing = this;
}

FailingAllocation::~FailingAllocation() {
    failing = nullptr;
}

bool FailingAllocation::count_allocation() {
    if (failed_)
        return all_later_;
    failed_ = --countdown_ == 0;
    return failed_;
}

// The usual operators serve what does not fail, so that a sanitizer sees matching pairs. The
// fake daemon's thread and the tests themselves only use the throwing ones.
void *operator new(std::size_t size, const std::nothrow_t &) noexcept {
    return fails_now() ? nullptr : ::operator new(size);
}

void *operator new[](std::size_t size, const std::nothrow_t &) noexcept {
    return fails_now() ? nullptr : ::operator new[](size);
}
