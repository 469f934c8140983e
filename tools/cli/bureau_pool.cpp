#include "cli/bureau_pool.h"

#include <utility>

#include "automation/json.h"

namespace zr::cli {
namespace {

/// Enough for every country in a few spellings.
constexpr std::size_t kMostBureaus = 8;

/// A transport that a facade may own, in front of the one that all share.
class LentTransport final : public HttpTransport {
  public:
    explicit LentTransport(HttpTransport& transport) : transport_(transport) {}
    HttpReply exchange(const HttpRequest& request) override { return transport_.exchange(request); }

  private:
    HttpTransport& transport_;
};

/// A setting with the value that it starts with.
struct StartValue {
    Service* service;
    const Property<Service>* setting;
    Value value;
};

std::vector<StartValue> start_values(const Services& services) {
    std::vector<StartValue> values;
    for (Service& service : services) {
        for (const Property<Service>& setting : service.settings()) {
            if (setting.write != nullptr) {
                Value value = setting.read(service);
                if (holds_text(value)) {
                    value = std::string(text_of(value));  // its own, not the setting's
                }
                values.push_back({&service, &setting, std::move(value)});
            }
        }
    }
    return values;
}

}  // namespace

struct BureauPool::Entry {
    explicit Entry(HttpTransport& transport)
        : bureau([&transport] {
              return std::make_unique<Runtime>(std::make_unique<LentTransport>(transport));
          }) {}

    void reset() {
        const ZRCreditBureau fresh;
        bureau.TestMode(fresh.TestMode());
        bureau.DateFormat(fresh.DateFormat());
        bureau.CurrencyFormat(fresh.CurrencyFormat());
        bureau.CurrencyFormatSymbol(fresh.CurrencyFormatSymbol());
        for (const StartValue& start : settings) {
            start.setting->write(*start.service, start.value);
        }
    }

    ZRCreditBureau bureau;
    std::vector<StartValue> settings;
};

BureauPool::BureauPool(HttpTransport& transport) : transport_(transport) {}

BureauPool::~BureauPool() = default;

ZRCreditBureau& BureauPool::bureau(const std::string& country) {
    const auto found = entries_.find(country);
    if (found != entries_.end()) {
        found->second->reset();
        return found->second->bureau;
    }
    auto entry = std::make_unique<Entry>(transport_);
    if (!entry->bureau.Initialise(country)) {
        throw automation::JsonError(entry->bureau.ErrorMessage());
    }
    entry->settings = start_values(entry->bureau.Services());
    if (entries_.size() == kMostBureaus) {
        entries_.clear();
    }
    return entries_.emplace(country, std::move(entry)).first->second->bureau;
}

}  // namespace zr::cli
