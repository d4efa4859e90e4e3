// What a piece of code, and the children it starts, print.
#pragma once

#include <gtest/gtest.h>
#include <string>

struct CapturedOutput {
    std::string out; // standard output
    std::string err; // standard error
};

template <class Function>
CapturedOutput capture_output(Function function) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    function();
    return {.out = testing::internal::GetCapturedStdout(),
            .err = testing::internal::GetCapturedStderr()};
}
