// How a run ends, and the failures that end it early.
#pragma once

#include <stdexcept>

namespace zr::cli {

/// The exit status of the program.
enum ExitStatus : int {
    kDone = 0,    ///< the operation's result is true; every line of input was answered
    kFailed = 1,  ///< the operation's result is false; the output could not be written
    kMisuse = 2,  ///< the command line or what it names cannot be used
};

/// What the user gave cannot be used; the reason is one sentence.
class MisuseError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The output cannot be written.
class OutputError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Whoever read the output has gone away: nothing is left to say.
class BrokenPipe : public OutputError {
  public:
    BrokenPipe() : OutputError("The reader of the output has gone away.") {}
};

}  // namespace zr::cli
