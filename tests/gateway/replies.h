// Reading replies: the bureau's answer to a request, and every path that occurs in it.
#pragma once

#include <set>
#include <string>

#include "bureau_gateway/bureau.h"
#include "bureau_gateway/message/xml_reader.h"

namespace zr::gateway::test {

constexpr Date kToday{std::chrono::year{2012}, std::chrono::month{6}, std::chrono::day{15}};

inline std::string ask(const std::string& request, const std::string& path = "/cta/sys1",
                       Date today = kToday) {
    return Bureau("demo", "demo-secret", today).answer(path, request).reply;
}

/// The content of BCAservice-data.
inline Element data_of(const std::string& reply) {
    const auto root = read_xml(reply);
    EXPECT_TRUE(root) << reply.substr(0, 500);
    const Element* at = root ? &*root : nullptr;
    for (const char* step : {"BCAservices", "BCAservice", "BCAservice-data"}) {
        at = at ? at->child(step) : nullptr;
    }
    EXPECT_TRUE(at) << reply.substr(0, 500);
    return at ? *at : Element{};
}

inline std::string refusal_code(const std::string& reply) {
    const Element data = data_of(reply);
    const Element* error = data.child("BCAerror");
    return error ? std::string(error->child_text("BCAerror-code")) : "none";
}

/// "code container" of every complaint, in order.
inline std::vector<std::string> complaints(const std::string& reply) {
    std::vector<std::string> found;
    const Element data = data_of(reply);
    const Element* response = data.child("response");
    for (const Element& each : response ? response->children : std::vector<Element>{}) {
        const Element* description = each.child("error-description");
        if (each.name == "error" && description) {
            found.push_back(std::string(description->attribute("code").value_or("")) + " " +
                            std::string(each.child_text("input-container")));
        }
    }
    return found;
}

/// Adds every path that holds a value: a/b, a/@b and, for attributes, also a/@b=value.
inline void collect_paths(const Element& element, const std::string& path,
                          std::set<std::string>& paths) {
    for (const auto& [name, value] : element.attributes) {
        if (!value.empty()) {
            paths.insert(path + "/@" + name);
            paths.insert(path + "/@" + name + "=" + value);
        }
    }
    if (!element.text.empty()) {
        paths.insert(path);
    }
    for (const Element& each : element.children) {
        collect_paths(each, path.empty() ? each.name : path + "/" + each.name, paths);
    }
}

}  // namespace zr::gateway::test
