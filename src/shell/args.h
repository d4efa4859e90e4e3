// Taking words from the line and converting them.
//
// "Consumed" means that the operation adds one to the context's consumed count, by which the
// dispatcher words its errors.
#pragma once

#include "config/text_utilities.h"
#include "shell/context.h"

#include <array>
#include <cstddef>
#include <cstdint>

// When not 0 the address readers echo each word as "p: <word>, len: <length>".
extern std::int32_t debug_print;

// A MAC address as text, with its NUL.
using MacText = std::array<char, 18>;

// An IPv4 address as dotted text, with its NUL.
using Ipv4Text = std::array<char, 16>;

// Number of unread words, 0..50.
int arg_count(const CliContext &cli);

// Takes the oldest unread word (as typed), or returns null.
char *arg_next(CliContext &cli);

// The n-th unread word, counting from 0, or null. It stays in the ring.
char *arg_peek(const CliContext &cli, int n);

// Takes the next word, consumed, as an unsigned number in `base` (0 allows the 0x and 0 prefixes).
// Larger numbers give 4294967295; a leading minus wraps, so -1 is 4294967295 too. Returns 0; or -1
// after printing "Error -- No value specified" or "Invalid input" (`value` may already be
// overwritten then).
int arg_uint(CliContext &cli, std::uint32_t &value, int base);

// Takes the next word, consumed, as a dotted address, stored in network order. Refuses
// 255.255.255.255, which is what the library's conversion returns for failure. Returns 1; or 0,
// after printing "No value specified" when there was no word.
int arg_ipv4(CliContext &cli, std::uint32_t &address);

// Reads the next word, consumed but left in the ring, as a MAC address of six hexadecimal
// components in exactly 17 characters, any separator; copies it as typed. Returns 1; or 0, after
// printing "No value specified" when there was no word.
int arg_mac(CliContext &cli, MacText &mac);

// Reads six components of at most two hexadecimal digits separated by ":". Returns 1, or 0 for
// anything else and for the all-zero address.
int mac_parse(const char *text, std::array<std::uint8_t, 6> &mac);

// Reads four decimal components below 256 separated by ".", an empty one counting as 0, with
// blanks and tabs around them; stores the four bytes in order. Returns 1, or 0.
int ipv4_parse_blank(const char *text, std::array<std::uint8_t, 4> &address);

// Reads an optional minus sign and decimal digits with blanks and tabs around them; a lone minus
// sign is 0, and numbers saturate at the limits of int. Returns 1, or 0 for anything else.
int int_parse_blank(const char *text, std::int32_t &value);

// decimal_value as unsigned: a negative number is above every limit.
inline std::uint32_t unsigned_value(const char *text) {
    return static_cast<std::uint32_t>(decimal_value(text));
}

// 1 when low <= decimal_value(text) <= high, else 0.
int in_range(const char *text, int low, int high);

// True when the only unread word, left in the ring, lies in low..high as for in_range.
bool is_only_word_in(const CliContext &cli, int low, int high);

// Writes an address in network order as canonical dotted text.
Ipv4Text ipv4_text(std::uint32_t address);
