// How a run ends, and the failures that end it early.
#pragma once

#include <stdexcept>

namespace zr::cli {

/// The exit status of the program.
enum ExitStatus : int {
    kDone = 0,     ///< the operation's result is true; every line of input was answered
    kFailed = 1,   ///< the operation's result is false; the output could not be written
    kMisuse = 2,   ///< the command line or what it names cannot be used
    kRescued = 3,  ///< an enquiry was answered, and its result could not be written where it should
};

/// The exit status of a run that a signal has ended, as a shell tells it.
constexpr int ended_by(int signal) { return 128 + signal; }

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

/// The bureau answered, and the result is not where it was to be; the message tells where it is.
class RescuedError : public OutputError {
  public:
    using OutputError::OutputError;
};

/// Whoever read the output has gone away: nothing is left to say.
class BrokenPipe : public OutputError {
  public:
    BrokenPipe() : OutputError("The reader of the output has gone away.") {}
};

}  // namespace zr::cli
