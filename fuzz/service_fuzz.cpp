// Translates whatever it is given as a stored reply of one service, ZR_FUZZ_SERVICE, and reads the
// whole response.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "read_all.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace {

constexpr std::string_view kService = ZR_FUZZ_SERVICE;

constexpr std::string_view kCountry = kService.find("NZ") != std::string_view::npos ? "NZ" : "AU";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static zr::ZRCreditBureau bureau;
    static const bool ready = bureau.Initialise(kCountry);
    if (!ready) {
        std::abort();
    }
    const std::string reply(reinterpret_cast<const char*>(data), size);
    const zr::Products& products = bureau.Services().Item(kService).Products();
    // Products differ in the layout of their report; the reply chooses one.
    const auto chosen =
        static_cast<std::int32_t>(size % static_cast<std::size_t>(products.Count()));
    for (const std::int32_t position : {1, 1 + chosen}) {
        const auto request = bureau.CreateRequest();
        request->ServiceName(kService);
        request->ProductId(products.Item(position).ProductId());
        const bool available = products.Item(position).Available();
        (void)bureau.BuildResponse(*request, zr::DateTime::ymd(2012, 6, 15), reply);
        if (available && request->Response()->ResponseXML() != reply) {
            std::abort();  // the reply's text is kept, translated or not
        }
        zr::fuzz::read_all(*request->Response());
    }
    return 0;
}
