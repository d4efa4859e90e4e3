#include "failing_allocation.h"

#include <cstddef>
#include <new>

namespace {

int countdown = 0; // 0: every allocation succeeds
bool fail_on = false;
bool failed = false;

bool fails_now() {
    if (countdown == 0 || --countdown > 0)
        return failed && fail_on;
    failed = true;
    return true;
}

} // namespace

FailingAllocation::FailingAllocation(int nth, bool all_later) {
    countdown = nth;
    fail_on = all_later;
    failed = false;
}

FailingAllocation::~FailingAllocation() {
    countdown = 0;
    fail_on = false;
    failed = false;
}

bool FailingAllocation::has_failed() const {
    return failed;
}

// The usual operators serve what does not fail, so that a sanitizer sees matching pairs. The
// fake daemon's thread and the tests themselves only use the throwing ones.
void *operator new(std::size_t size, const std::nothrow_t &) noexcept {
    return fails_now() ? nullptr : ::operator new(size);
}

void *operator new[](std::size_t size, const std::nothrow_t &) noexcept {
    return fails_now() ? nullptr : ::operator new[](size);
}
