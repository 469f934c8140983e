// Tells all that the C library gives of replies, so that two systems can be compared byte by byte:
//   reader COUNTRY SERVICE PRODUCT DATE SHEET NAMES REPLY...   stored replies
//   reader COUNTRY SERVICE PRODUCT URL                         an enquiry, of which the lines count
// NAMES is a file with the names of the response's properties, a name a line.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "support/c_host.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

using zr::test::object;
using zr::test::text;

void must(zr_status status, const char* what) {
    if (status != ZR_OK) {
        zr_error error;
        zr_last_error(&error);
        std::printf("%s: %d %.*s\n", what, error.number, static_cast<int>(error.description.size),
                    error.description.data);
        std::exit(3);
    }
}

zr_value get(zr_handle self, const char* name, const std::vector<zr_value>& given = {}) {
    zr_value result{};
    must(zr_get_by_name(self, name, given.data(), given.size(), &result), name);
    return result;
}

void put(zr_handle self, const char* name, zr_value value) {
    must(zr_put_by_name(self, name, &value, 1), name);
}

void print(const std::string& name, const zr_value& value) {
    std::printf("%s\t%d\t", name.c_str(), value.type);
    switch (value.type) {
        case ZR_TEXT:
            std::fwrite(value.as.text.data, 1, value.as.text.size, stdout);
            break;
        case ZR_BOOLEAN:
            std::printf("%d", value.as.boolean);
            break;
        case ZR_INT16:
            std::printf("%d", value.as.int16);
            break;
        case ZR_INT32:
            std::printf("%d", value.as.int32);
            break;
        case ZR_CURRENCY:
            std::printf("%ld.%04ld", static_cast<long>(value.as.currency / 10000),
                        static_cast<long>(value.as.currency % 10000));
            break;
        case ZR_DATE:
            std::printf("%04d-%02d-%02d %02d:%02d:%02d", value.as.date.year, value.as.date.month,
                        value.as.date.day, value.as.date.hour, value.as.date.minute,
                        value.as.date.second);
            break;
        default:
            break;
    }
    std::printf("\n");
}

void print_lines(zr_handle response) {
    const zr_handle lines = get(response, "ResponseElements").as.object;
    zr_handle walk = 0;
    must(zr_enumerate(lines, &walk), "the lines");
    zr_value line{};
    while (zr_next(walk, &line) == ZR_OK) {
        for (const char* name :
             {"ResponseGroupSort", "ResponseSubGroup", "ResponseName", "ResponseDescription"}) {
            print(name, get(line.as.object, name));
        }
        zr_release(line.as.object);
    }
    zr_release(walk);
    zr_release(lines);
}

std::string contents(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

zr_value day(const std::string& iso) {
    return zr::test::date(std::stoi(iso.substr(0, 4)), std::stoi(iso.substr(5, 2)),
                          std::stoi(iso.substr(8, 2)));
}

void read_replies(zr_handle bureau, zr_handle request, char** arguments, int count) {
    std::vector<std::string> names;
    std::ifstream listed(arguments[1]);
    for (std::string name; std::getline(listed, name);) {
        names.push_back(name);
    }
    for (int i = 2; i < count; ++i) {
        const std::string reply = contents(arguments[i]);
        print("BuildResponse",
              get(bureau, "BuildResponse", {object(request), day(arguments[0]), text(reply)}));
        print("ErrorMessage", get(bureau, "ErrorMessage"));
        const zr_handle response = get(request, "Response").as.object;
        for (const std::string& name : names) {
            print(name, get(response, name.c_str()));
        }
        print_lines(response);
        zr_release(response);
    }
}

void enquire(zr_handle bureau, zr_handle service, zr_handle request, const char* url) {
    put(service, "RequestURLTest", text(url));
    for (const char* name : {"UserId", "UserPassword", "SubscriberId", "SubscriberSecurityCode"}) {
        const char* const value = std::getenv(name);
        put(service, name, text(value == nullptr ? "" : value));
    }
    constexpr const char* kApplicant[][2] = {{"AccountType", "Loan Contract"},
                                             {"LastName", "Testwell"},
                                             {"FirstName", "Alba"},
                                             {"Gender", "Female"},
                                             {"StreetNumber", "12"},
                                             {"StreetName", "Example"},
                                             {"StreetType", "Avenue"},
                                             {"Suburb", "Sampleford"},
                                             {"State", "NSW"},
                                             {"Postcode", "2999"}};
    for (const auto& [name, value] : kApplicant) {
        put(request, name, text(value));
    }
    print("ExecuteCreditEnquiry", get(bureau, "ExecuteCreditEnquiry", {object(request)}));
    print("ErrorMessage", get(bureau, "ErrorMessage"));
    const zr_handle response = get(request, "Response").as.object;
    const zr_handle lines = get(response, "ResponseElements").as.object;
    print("Count", get(lines, "Count"));
    zr_release(lines);
    zr_release(response);
}

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    if (argc != 5 && argc < 8) {
        return 2;
    }
    zr_handle bureau = 0;
    must(zr_create("ZRCreditBureau5.ZRCreditBureau", &bureau), "create");
    print("Initialise", get(bureau, "Initialise", {text(argv[1])}));
    const zr_handle services = get(bureau, "Services").as.object;
    const zr_handle service = get(services, "Item", {text(argv[2])}).as.object;
    const zr_handle request = get(bureau, "CreateRequest").as.object;
    put(request, "ServiceName", text(argv[2]));
    put(request, "ProductId", text(argv[3]));
    if (argc == 5) {
        enquire(bureau, service, request, argv[4]);
    } else {
        put(service, "XSLTFileName", text(argv[5]));
        char* arguments[] = {argv[4], argv[6]};
        std::vector<char*> rest(arguments, arguments + 2);
        rest.insert(rest.end(), argv + 7, argv + argc);
        read_replies(bureau, request, rest.data(), static_cast<int>(rest.size()));
    }
    for (const zr_handle held : {request, service, services, bureau}) {
        zr_release(held);
    }
    return 0;
}
