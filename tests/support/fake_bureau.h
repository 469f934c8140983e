// A facade whose transport answers from a script and whose clock stands still.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zrcreditbureau/error.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::test {

/// What the bureau answers to every exchange, and what it was asked.
struct BureauScript {
    HttpReply reply{200, "OK", {}};
    std::optional<PlatformError> failure;  ///< thrown instead of the reply
    std::vector<HttpRequest> requests;
};

class ScriptedTransport final : public HttpTransport {
  public:
    explicit ScriptedTransport(std::shared_ptr<BureauScript> script) : script_(std::move(script)) {}

    HttpReply exchange(const HttpRequest& request) override {
        script_->requests.push_back(request);
        if (script_->failure) {
            throw PlatformError(*script_->failure);
        }
        return script_->reply;
    }

  private:
    std::shared_ptr<BureauScript> script_;
};

inline const DateTime kClock{DateTime::ymd(2012, 6, 15).date, std::chrono::seconds(51'000)};

/// An initialised facade, its script, and one of its requests.
class FakeBureau {
  public:
    explicit FakeBureau(std::string_view country = "AU", const DateTime& now = kClock)
        : facade([script = script_, now] {
              return std::make_unique<Runtime>(std::make_unique<ScriptedTransport>(script),
                                               [now] { return now; });
          }),
          request(facade.CreateRequest()) {
        facade.Initialise(country);
    }

    BureauScript& script() { return *script_; }

    Service& service(std::string_view name = "VedaXMLAU") const {
        return facade.Services().Item(name);
    }

    /// Sets the request up for a product.
    void ask(std::string_view product_id, std::string_view service_name = "VedaXMLAU") {
        request->ServiceName(service_name);
        request->ProductId(product_id);
    }

    /// Translates a reply as of 15 June 2012 and gives the response.
    const Response& translated(const std::string& reply_xml,
                               const DateTime& date = kClock.date_only()) {
        ask("consumer-enquiry");
        facade.BuildResponse(*request, date, reply_xml);
        return *request->Response();
    }

  private:
    std::shared_ptr<BureauScript> script_ = std::make_shared<BureauScript>();

  public:
    ZRCreditBureau facade;
    std::unique_ptr<Request> request;
};

}  // namespace zr::test
