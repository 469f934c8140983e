// Reading replies: the bureau's answer to a request, and what stands in it.
#pragma once

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "bureau_gateway/bureau.h"

namespace zr::gateway::test {

inline constexpr const char* kAustralia = "/cta/sys1";
inline constexpr const char* kNewZealand = "/nz/cta/sys1";

inline Settings settings_of(unsigned day) {
    Settings settings;
    settings.today = std::chrono::year{2012} / 6 / static_cast<int>(day);
    return settings;
}

inline std::string ask(const std::string& request, const std::string& path = kAustralia) {
    static const Bureau bureau(settings_of(15));
    return bureau.answer(path, request).reply;
}

/// A reply; what its content says by XPath from BCAservice-data.
class Reply {
  public:
    explicit Reply(const std::string& text) : document_(parse(text)) {
        EXPECT_TRUE(document_) << text.substr(0, 500);
    }
    std::vector<xmlNode*> nodes(const std::string& path) const {
        XPath xpath(*document_);
        const auto data =
            xpath.nodes("/BCAmessage/BCAservices/BCAservice/BCAservice-data", *document_->children);
        return data.empty() ? data : xpath.nodes(path, *data.front());
    }
    std::size_t count(const std::string& path) const { return nodes(path).size(); }
    std::string text(const std::string& path) const {
        const auto found = nodes(path);
        return found.empty() ? std::string() : text_of(*found.front());
    }

  private:
    Document document_;
};

inline std::string refusal_code(const std::string& reply) {
    const std::string code = Reply(reply).text("BCAerror/BCAerror-code");
    return code.empty() ? "none" : code;
}

/// "code container" of every complaint, in order; the code alone where no more is told.
inline std::vector<std::string> complaints(const std::string& reply) {
    std::vector<std::string> found;
    const Reply read(reply);
    for (xmlNode* each : read.nodes("response/error")) {
        const std::string container = text_at(*each, "string(input-container)");
        found.push_back(text_at(*each, "string(error-description/@code)") +
                        (container.empty() ? "" : " ") + container);
    }
    return found;
}

}  // namespace zr::gateway::test
