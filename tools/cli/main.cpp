// The command-line host.
#include <csignal>
#include <exception>
#include <iostream>
#include <optional>

#include "automation/json.h"
#include "cli/failure.h"
#include "cli/options.h"
#include "cli/report_text.h"
#include "zrcreditbureau/error.h"

namespace {

int fail(int status, std::string_view reason) {
    std::cerr << "zrcreditbureau: " << zr::cli::printable(reason) << '\n';
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace zr::cli;
    // A reader that goes away is an error of a write, not the end of the process.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);  // likewise a file that has grown too large
    try {
        int status = kDone;
        const std::optional<Invocation> invocation = read_command_line(argc, argv, status);
        return invocation ? run_command(*invocation) : status;
    } catch (const BrokenPipe&) {
        return kFailed;
    } catch (const RescuedError& error) {
        return fail(kRescued, error.what());
    } catch (const OutputError& error) {
        return fail(kFailed, error.what());
    } catch (const MisuseError& error) {
        return fail(kMisuse, error.what());
    } catch (const zr::automation::JsonError& error) {
        return fail(kMisuse, error.what());
    } catch (const std::exception& error) {
        return fail(kFailed, zr::error_text(error));
    }
}
