// The few faults the engine raises. Refusal of content is a value (false / empty
// string); these exceptions mean the content could not even be read.
#pragma once
#include <stdexcept>
#include <string>

namespace krt {

// An escape sequence that yields no character ("\q", a trailing backslash,
// a negative value), or a text character the ISBN text line cannot draw.
class EscapeNonValido : public std::invalid_argument {
public:
    using std::invalid_argument::invalid_argument;
};

// A weighted product of the Code 128 check sum beyond 32767.
class OverflowCheckSum : public std::overflow_error {
public:
    using std::overflow_error::overflow_error;
};

// A lookup in a range list with a key below its first entry.
class IntervalloNonValido : public std::out_of_range {
public:
    using std::out_of_range::out_of_range;
};

}  // namespace krt
