// A host's calls in random order: each byte says which comes next. The bureau answers with a piece
// of the input, fails, or runs out of memory.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "read_all.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace {

using zr::DateTime;
using zr::Request;
using zr::ZRCreditBureau;

/// The input, read from its front; zeros behind its end.
class Script {
  public:
    Script(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    bool done() const { return rest_.empty(); }

    std::size_t next(std::size_t below) {
        if (rest_.empty()) {
            return 0;
        }
        const auto byte = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return byte % below;
    }

    std::string text() {
        const std::size_t pieces = next(256);
        const std::size_t wanted = pieces * (next(2) == 0 ? 1U : 40U);
        const std::string result(rest_.substr(0, wanted));
        rest_.remove_prefix(result.size());
        return result;
    }

  private:
    std::string_view rest_;
};

class Bureau final : public zr::HttpTransport {
  public:
    explicit Bureau(Script& script) : script_(script) {}

    zr::HttpReply exchange(const zr::HttpRequest&) override {
        switch (script_.next(6)) {
            case 0:
                throw zr::PlatformError(zr::error_number::kTimeout, "The operation timed out");
            case 1:
                throw std::bad_alloc();
            case 2:
                return {401, "Who", script_.text()};
            default:
                return {200, "OK", script_.text()};
        }
    }

  private:
    Script& script_;
};

constexpr std::array<std::string_view, 7> kNames = {"VedaXMLAU",  "VedaXMLNZ", "B2BayAU", "B2BayNZ",
                                                    "B2BayNZ_V2", "vedaxmlau", ""};

/// What a host holds on to, and the calls that it makes.
class Host {
  public:
    explicit Host(Script& script)
        : script_(script), bureau_([this] {
              return std::make_unique<zr::Runtime>(std::make_unique<Bureau>(script_),
                                                   [] { return DateTime::ymd(2012, 6, 15); });
          }) {
        request_ = bureau_.CreateRequest();
    }

    void run() {
        while (!script_.done()) {
            call();
        }
        // What was held keeps its value, whatever was done since.
        for (const auto& [response, text] : held_) {
            if (zr::fuzz::read_all(*response) != text) {
                std::abort();
            }
        }
    }

  private:
    void call() {
        switch (script_.next(16)) {
            case 0:
                return expect(bureau_.Initialise(script_.next(4) == 0   ? script_.text()
                                                 : script_.next(2) == 0 ? "AU"
                                                                        : "NZ"));
            case 1:
                return bureau_.Dispose();
            case 2:
                request_ = bureau_.CreateRequest();
                return;
            case 3:
                return request_->ServiceName(name());
            case 4:
                return choose_product();
            case 5:
                return write_property();
            case 6:
                return expect(bureau_.ExecuteCreditEnquiry(*request_));
            case 7:
                return expect(bureau_.ExecuteGetList(*request_));
            case 8:
                return expect(bureau_.ExecuteVerifyConnection(name()));
            case 9:
                return expect(
                    bureau_.BuildResponse(*request_, DateTime::ymd(2012, 6, 15), script_.text()));
            case 10:
                held_.clear();
                held_.emplace_back(request_->Response(), zr::fuzz::read_all(*request_->Response()));
                // One that stays attached is the next enquiry's to fill.
                return request_->Response(nullptr);
            case 11:
                request_->Response(nullptr);
                return;
            case 12:
                return write_option();
            case 13:
                return request_->Clear(script_.next(2) == 0);
            case 14:
                return write_setting();
            default:
                return write_format();
        }
    }

    /// A failure has its reason.
    void expect(bool result) {
        if (!result && bureau_.ErrorMessage().empty()) {
            std::abort();
        }
    }

    std::string name() {
        const std::size_t which = script_.next(kNames.size() + 1);
        return which < kNames.size() ? std::string(kNames[which]) : script_.text();
    }

    void choose_product() {
        const zr::Products* products = bureau_.ServiceProducts(request_->ServiceName());
        if (products == nullptr || products->Count() == 0) {
            return request_->ProductId(script_.text());
        }
        const auto count = static_cast<std::size_t>(products->Count());
        request_->ProductId(
            products->Item(1 + static_cast<std::int32_t>(script_.next(count))).ProductId());
    }

    void write_property() {
        const auto properties = zr::request_properties();
        const auto& property = properties[script_.next(properties.size())];
        if (property.write != nullptr) {
            property.write(*request_, value(property.type));
        }
    }

    zr::Value value(zr::ValueType type) {
        switch (type) {
            case zr::ValueType::kText:
                return script_.text();
            case zr::ValueType::kBoolean:
                return script_.next(2) == 0;
            case zr::ValueType::kCount:
            case zr::ValueType::kInteger:
                return static_cast<std::int32_t>(script_.next(256) << script_.next(24));
            case zr::ValueType::kCurrency:
                return zr::Currency::from_units(
                    static_cast<std::int64_t>(script_.next(256) << script_.next(56)));
            case zr::ValueType::kDate:
            case zr::ValueType::kDateOrNull:
                break;
        }
        return DateTime::ymd(1900 + static_cast<int>(script_.next(256)),
                             1 + static_cast<unsigned>(script_.next(12)),
                             1 + static_cast<unsigned>(script_.next(28)));
    }

    void write_option() {
        const std::string id = script_.next(2) == 0 ? "score" : script_.text();
        switch (script_.next(4)) {
            case 0:
                return request_->OptionChecked(id, script_.next(2) == 0);
            case 1:
                return request_->OptionValue(id, script_.text());
            case 2:
                return request_->OptionTag(id, script_.text());
            default:
                return request_->OptionsClear();
        }
    }

    void write_setting() {
        const zr::Services& services = bureau_.Services();
        try {
            // Positions that are none raise, as documented.
            zr::Service& service = services.Item(static_cast<std::int32_t>(script_.next(5)));
            const auto settings = service.settings();
            const auto& setting = settings[script_.next(settings.size())];
            // A style sheet would be a file of this machine.
            if (setting.write != nullptr && setting.name != "XSLTFileName") {
                setting.write(service, value(setting.type));
            }
        } catch (const zr::PlatformError& error) {
            if (error.number() != zr::error_number::kItemNotFound) {
                std::abort();
            }
        }
    }

    void write_format() {
        const std::string pattern = script_.text();
        switch (script_.next(4)) {
            case 0:
                return bureau_.CurrencyFormat(pattern);
            case 1:
                return bureau_.CurrencyFormatSymbol(pattern);
            case 2:
                return bureau_.DateFormat(pattern);
            default:
                return bureau_.TestMode(script_.next(2) == 0);
        }
    }

    Script& script_;
    ZRCreditBureau bureau_;
    std::unique_ptr<Request> request_;
    std::vector<std::pair<std::shared_ptr<const zr::Response>, std::string>> held_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Script script(data, size);
    Host(script).run();
    return 0;
}
