#include "cli/rescue.h"

#include <unistd.h>

#include <cstdlib>
#include <string>

namespace zr::cli {
namespace {

/// A new file of its owner's alone that `write` has written; "" where that fails.
std::string rescue_file(const std::string& folder, const std::function<void(Output&)>& write) {
    std::string path = folder + "/zrcreditbureau-rescued-XXXXXX";
    const int descriptor = folder.empty() ? -1 : ::mkstemp(path.data());
    if (descriptor < 0) {
        return {};
    }
    try {
        Output file(path, path, descriptor);
        write(file);
        file.sync();
        return path;
    } catch (const OutputError&) {
        ::unlink(path.c_str());
        return {};
    }
}

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

}  // namespace

void write_or_rescue(Output& output, const std::function<void(Output&)>& write,
                     void (Output::*settle)()) {
    try {
        write(output);
        (output.*settle)();
    } catch (const OutputError& error) {
        output.take_back();
        std::string reason = error.what();
        reason += " The result ";
        for (const std::string& folder : {environment("TMPDIR"), std::string("/tmp"),
                                          environment("HOME"), std::string("/dev/shm")}) {
            const std::string path = rescue_file(folder, write);
            if (!path.empty()) {
                throw RescuedError(reason.append("is in ").append(path).append("."));
            }
        }
        try {
            Output standard("");
            write(standard);
            standard.flush();
        } catch (const OutputError&) {
            throw RescuedError(reason + "is lost.");
        }
        throw RescuedError(reason + "is on standard output.");
    }
}

}  // namespace zr::cli
