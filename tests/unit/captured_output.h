// What a piece of code, and the children it starts, print.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

struct CapturedOutput {
    std::string out; // standard output
    std::string err; // standard error
};

// Sends one of the standard streams into a temporary file while it lives.
class StreamCapture {
public:
    explicit StreamCapture(std::FILE *stream)
        : stream_(stream), usual_(dup(fileno(stream))), file_(std::tmpfile()) {
        std::fflush(stream_);
        if (usual_ < 0 || file_ == nullptr || dup2(fileno(file_), fileno(stream_)) < 0)
            std::abort();
    }
    StreamCapture(const StreamCapture &) = delete;
    StreamCapture &operator=(const StreamCapture &) = delete;
    ~StreamCapture() { take(); }

    // Puts the stream back and returns what went into it.
    std::string take() {
        if (file_ == nullptr)
            return {};
        std::fflush(stream_);
        dup2(usual_, fileno(stream_));
        close(usual_);
        std::string text;
        char chunk[4096];
        std::rewind(file_);
        for (std::size_t got = 0; (got = std::fread(chunk, 1, sizeof chunk, file_)) > 0;)
            text.append(chunk, got);
        std::fclose(file_);
        file_ = nullptr;
        return text;
    }

private:
    std::FILE *stream_;
    int usual_;
    std::FILE *file_;
};

// Runs a function with both streams captured.
template <class Function>
CapturedOutput capture_output(Function function) {
    StreamCapture out(stdout);
    StreamCapture err(stderr);
    function();
    return {.out = out.take(), .err = err.take()};
}
