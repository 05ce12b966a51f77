#pragma once

#include <stdexcept>
#include <string>

namespace host {

// Something that the user gave cannot be used: a file, what is in it, a place to write to. The text is one line that
// begins with the file's name.
class InputError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// The command line is wrong.
class UsageError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// Whoever read standard output has gone. Not a failure.
class OutputClosed : public std::runtime_error {
public:
  OutputClosed() : std::runtime_error("standard output: closed by its reader") {}
};

// The user or the system asked the command to stop.
class Interrupted : public std::runtime_error {
public:
  explicit Interrupted(int signalNumber) : std::runtime_error("interrupted"), signal(signalNumber) {}
  const int signal;
};

// "file: text", and "file:line: text" for a line above 0.
std::string located(const std::string& file, const std::string& text);
std::string located(const std::string& file, long line, const std::string& text);

// "1 row", "2 rows".
std::string counted(std::size_t count, const std::string& noun);

// The text with everything that would break a line or steer a terminal replaced by blanks, and no blanks at its end.
std::string oneLine(std::string text);

}  // namespace host
