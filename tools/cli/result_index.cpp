#include "cli/result_index.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <functional>

#include "cli/failure.h"
#include "cli/output.h"

namespace zr::cli {
namespace {

using automation::JsonValue;

std::size_t hash_of(const std::string& name) { return std::hash<std::string>{}(name); }

/// The file; or one without a name, of its owner's alone, that holds what comes through a pipe.
int open_results(const std::string& path) {
    const int results = open_file(path);
    struct stat status {};
    if (::fstat(results, &status) == 0 && S_ISREG(status.st_mode)) {
        return results;
    }
    const Descriptor pipe(results);
    const char* const folder = std::getenv("TMPDIR");
    std::string name = std::string(folder != nullptr ? folder : "/tmp") + "/zrcreditbureau-XXXXXX";
    const int kept = ::mkostemp(name.data(), O_CLOEXEC);
    if (kept < 0) {
        throw OutputError("Cannot write " + name + ": " + std::strerror(errno) + ".");
    }
    (void)::unlink(name.c_str());
    Output copy(name, name, ::dup(kept));
    LineReader lines(pipe.get());
    for (std::string_view line; lines.next(line); copy.write("\n")) {
        refuse_too_long(lines, path);
        copy.write(line);
    }
    copy.flush();
    (void)::lseek(kept, 0, SEEK_SET);
    return kept;
}

}  // namespace

JsonValue parse_result(std::string_view line, const std::string& path, std::uint64_t number) {
    try {
        JsonValue result = automation::parse_json(line);
        if (result.find("Result") != nullptr) {
            return result;
        }
    } catch (const automation::JsonError&) {
        // said below
    }
    throw MisuseError("Line " + std::to_string(number) + " of " + path + " is no result.");
}

std::string name_of(std::string_view line, const std::string& path, std::uint64_t number) {
    constexpr std::string_view kHead = "{\"File\":";
    if (line.starts_with(kHead)) {
        std::size_t end = kHead.size() + 1;
        while (end < line.size() && line[end] != '"') {
            end += line[end] == '\\' ? 2 : 1;
        }
        try {
            return automation::parse_json(line.substr(kHead.size(), end + 1 - kHead.size())).text();
        } catch (const automation::JsonError&) {
            // as the whole line
        }
    }
    const JsonValue result = parse_result(line, path, number);
    const JsonValue* const file = result.find("File");
    return file == nullptr ? "line " + std::to_string(number) : file->text();
}

void refuse_too_long(const LineReader& lines, const std::string& path) {
    if (lines.too_long()) {
        throw MisuseError(path + " has a line of more than 256 MiB.");
    }
}

ResultIndex::ResultIndex(const std::string& path) : path_(path), file_(open_results(path)) {
    LineReader lines(file_.get());
    std::uint64_t offset = 0;
    std::uint64_t number = 0;
    for (std::string_view line; lines.next(line); offset += line.size() + 1) {
        refuse_too_long(lines, path);
        if (!line.empty()) {
            places_.push_back({hash_of(name_of(line, path, ++number)), number, offset,
                               static_cast<std::uint32_t>(line.size())});
        }
    }
    std::ranges::stable_sort(places_, {}, &Place::hash);
    seen_.resize(places_.size());
}

bool ResultIndex::take(const std::string& name, std::string& line) {
    auto place = std::ranges::lower_bound(places_, hash_of(name), {}, &Place::hash);
    for (; place != places_.end() && place->hash == hash_of(name); ++place) {
        const auto at = static_cast<std::size_t>(place - places_.begin());
        if (seen_[at]) {
            continue;
        }
        read(*place, line);
        if (name_of(line, path_, place->number) == name) {
            seen_[at] = true;
            last_ = place->number;
            return true;
        }
    }
    return false;
}

std::vector<std::string> ResultIndex::left() const {
    std::vector<Place> places;
    for (std::size_t at = 0; at < places_.size(); ++at) {
        if (!seen_[at]) {
            places.push_back(places_[at]);
        }
    }
    std::ranges::sort(places, {}, &Place::number);
    std::vector<std::string> names;
    std::string line;
    for (const Place& place : places) {
        read(place, line);
        names.push_back(name_of(line, path_, place.number));
    }
    return names;
}

void ResultIndex::read(const Place& place, std::string& line) const {
    line.resize(place.size);
    for (std::size_t done = 0; done < line.size();) {
        const ssize_t count = ::pread(file_.get(), line.data() + done, line.size() - done,
                                      static_cast<off_t>(place.offset + done));
        if (count <= 0) {
            throw MisuseError("Cannot read " + path_ + " any more.");
        }
        done += static_cast<std::size_t>(count);
    }
}

}  // namespace zr::cli
