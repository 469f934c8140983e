// Translates whatever it is given as a stored reply, and reads the whole response.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "facade/zr_credit_bureau.h"

namespace {

using zr::ZRCreditBureau;

/// A facade with a request on the first product of each of its services.
struct Country {
    explicit Country(std::string_view name) { bureau.Initialise(name); }
    ZRCreditBureau bureau;
};

/// Reads every property and line, so that a dangling one is found.
std::size_t read_all(const zr::Response& response) {
    std::size_t characters = 0;
    for (const auto& property : zr::response_properties()) {
        characters += zr::text_of(property.read(response)).size();
    }
    for (const zr::ResponseElement& line : response.ResponseElements()) {
        if (line.ResponseDescription().empty()) {
            std::abort();  // a line without a value must never be added
        }
        characters += line.ResponseGroupSort().size() + line.ResponseSubGroup().size() +
                      line.ResponseName().size();
    }
    return characters;
}

void translate(Country& country, const std::string& reply) {
    const zr::Services& services = country.bureau.Services();
    for (std::int32_t position = 1; position <= services.Count(); ++position) {
        const zr::Service& service = services.Item(position);
        const auto request = country.bureau.CreateRequest();
        request->ServiceName(service.ServiceName());
        request->ProductId(service.Products().Item(1).ProductId());
        (void)country.bureau.BuildResponse(*request, zr::DateTime::ymd(2012, 6, 15), reply);
        if (request->Response()->ResponseXML() != reply) {
            std::abort();  // the reply's text is kept, translated or not
        }
        read_all(*request->Response());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Country australia("AU");
    static Country new_zealand("NZ");
    const std::string reply(reinterpret_cast<const char*>(data), size);
    translate(australia, reply);
    translate(new_zealand, reply);
    return 0;
}
