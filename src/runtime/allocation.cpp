// The program's operator new and delete, on the C library's allocator. Every allocation is
// std::nothrow; a throwing one would need the C++ library.
#include <cstdlib>
#include <new>

const std::nothrow_t std::nothrow{};

void *operator new(std::size_t size, const std::nothrow_t &) noexcept {
    return std::malloc(size);
}
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept {
    return std::malloc(size);
}
// NOLINTBEGIN(misc-new-delete-overloads): throwing ones are left out on purpose
void operator delete(void *block) noexcept {
    std::free(block);
}
void operator delete[](void *block) noexcept {
    std::free(block);
}
void operator delete(void *block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void *block, std::size_t) noexcept {
    std::free(block);
}
// NOLINTEND(misc-new-delete-overloads)
