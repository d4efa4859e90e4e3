// The configuration daemon and the device's files, played from texts that the fuzzer makes up.
#pragma once

#include <string_view>
#include <vector>

// How a text becomes the bytes of an answer.
enum class Answers {
    WELL_FORMED, // as a node's text or a status, whichever the request was for
    RAW,         // the bytes alone, and then the end
};

// While it lives, every connection to a socket gets the next of the texts as its answer, and every
// file that the program opens holds the next one ("" stands for a file that is not there); after
// the last comes the first again. Nothing is written to any file. One at a time.
class ScriptedHost {
public:
    ScriptedHost(std::vector<std::string_view> texts, Answers answers);
    ScriptedHost(const ScriptedHost &) = delete;
    ScriptedHost &operator=(const ScriptedHost &) = delete;
    ~ScriptedHost();
};
