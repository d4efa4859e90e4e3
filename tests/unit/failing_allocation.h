// Memory that runs out at a chosen moment.
#pragma once

// While it lives, the n-th nothrow allocation from now on (counting from 1) fails, and so do
// those behind it when `all_later`. One at a time.
class FailingAllocation {
public:
    explicit FailingAllocation(int nth, bool all_later = false);
    FailingAllocation(const FailingAllocation &) = delete;
    FailingAllocation &operator=(const FailingAllocation &) = delete;
    ~FailingAllocation();

    // True once an allocation failed.
    [[nodiscard]] bool has_failed() const { return failed_; }

    // Counts an allocation; true when it is to fail.
    bool count_allocation();

private:
    int countdown_;
    bool all_later_;
    bool failed_ = false;
};
