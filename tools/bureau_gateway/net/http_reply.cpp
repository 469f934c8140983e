#include "bureau_gateway/net/http_reply.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "bureau_gateway/net/encoding.h"

namespace zr::gateway {
namespace {

struct StatusRow {
    int status;
    std::string_view text;
};
constexpr std::array kStatuses = {
    StatusRow{200, "OK"},
    StatusRow{302, "Found"},
    StatusRow{400, "Bad Request"},
    StatusRow{401, "Unauthorized"},
    StatusRow{403, "Forbidden"},
    StatusRow{404, "Not Found"},
    StatusRow{405, "Method Not Allowed"},
    StatusRow{413, "Content Too Large"},
    StatusRow{415, "Unsupported Media Type"},
    StatusRow{431, "Request Header Fields Too Large"},
    StatusRow{500, "Internal Server Error"},
    StatusRow{502, "Bad Gateway"},
    StatusRow{503, "Service Unavailable"},
    StatusRow{504, "Gateway Timeout"},
};

std::string_view status_text(int status) {
    const auto row = std::find_if(kStatuses.begin(), kStatuses.end(),
                                  [&](const StatusRow& each) { return each.status == status; });
    return row == kStatuses.end() ? std::string_view("Unusual Status") : row->text;
}

constexpr int kDeepLevels = 10'000;
constexpr int kManyAttributes = 100'000;
constexpr int kSlowPieces = 16;
constexpr std::string_view kElsewhere = "https://elsewhere.invalid/sys1";

std::string repeated(std::string_view text, int times) {
    std::string result;
    result.reserve(text.size() * static_cast<std::size_t>(times));
    for (int i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

/// Puts `text` before the end of the reply's document element.
void insert_at_end(std::string& document, std::string_view text) {
    const auto end = document.rfind("</BCAmessage>");
    document.insert(end == std::string::npos ? document.size() : end, text);
}

/// Names the encoding in the document's declaration.
void declare_encoding(std::string& document, std::string_view name) {
    constexpr std::string_view kUsual = "\"UTF-8\"";
    if (const auto at = document.find(kUsual); at != std::string::npos) {
        document.replace(at + 1, kUsual.size() - 2, name);
    }
}

std::string with_many_attributes() {
    std::string element = "<many";
    for (int i = 0; i < kManyAttributes; ++i) {
        element += " a" + std::to_string(i) + "=\"\"";
    }
    return element + "/>";
}

/// Faults of what the reply is.
void change_reply(HttpReply& reply, const Fault& fault) {
    switch (fault.kind) {
        case FaultKind::kStatus:
            reply = status_page(static_cast<int>(fault.number));
            break;
        case FaultKind::kHtml:
            reply = status_page(200);
            break;
        case FaultKind::kRedirect:
            reply = status_page(302);
            reply.headers.emplace_back("Location", kElsewhere);
            break;
        case FaultKind::kMalformed:
            reply.body.resize(reply.body.size() * 2 / 3);
            reply.body += "<unfinished";
            break;
        case FaultKind::kEntity:
            reply.body =
                "<?xml version=\"1.0\"?>\n<!DOCTYPE BCAmessage [\n"
                "<!ENTITY a \"aaaaaaaaaa\">\n<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">\n"
                "<!ENTITY c SYSTEM \"file:///dev/null\">\n]>\n"
                "<BCAmessage>&b;&c;</BCAmessage>\n";
            break;
        case FaultKind::kDeep:
            insert_at_end(reply.body,
                          repeated("<deep>", kDeepLevels) + repeated("</deep>", kDeepLevels));
            break;
        case FaultKind::kAttributes:
            insert_at_end(reply.body, with_many_attributes());
            break;
        case FaultKind::kEmpty:
            reply.body.clear();
            break;
        case FaultKind::kCharset:
            reply.charset = fault.text;
            declare_encoding(reply.body, fault.text);
            reply.body = encode(reply.body, fault.text);
            break;
        case FaultKind::kBom:
            reply.charset.clear();
            reply.body = encode("\xEF\xBB\xBF" + reply.body, fault.text);
            break;
        default:
            break;
    }
}

/// The headers; a length of none means a chunked body.
std::string head(const HttpReply& reply, std::optional<std::uint64_t> content_length,
                 bool keep_alive) {
    std::string text = "HTTP/1.1 " + std::to_string(reply.status) + " " +
                       std::string(status_text(reply.status)) + "\r\nServer: bureau-gateway\r\n";
    text += "Content-Type: " + reply.content_type;
    if (!reply.charset.empty()) {
        text += "; charset=" + reply.charset;
    }
    text += content_length ? "\r\nContent-Length: " + std::to_string(*content_length)
                           : std::string("\r\nTransfer-Encoding: chunked");
    for (const auto& [name, value] : reply.headers) {
        text += "\r\n" + std::string(name) + ": " + value;
    }
    return text + "\r\nConnection: " + (keep_alive ? "keep-alive" : "close") + "\r\n\r\n";
}

std::string chunk(std::string_view bytes) {
    std::array<char, 16> size{};
    const auto end = std::to_chars(size.data(), size.data() + size.size(), bytes.size(), 16).ptr;
    return std::string(size.data(), end) + "\r\n" + std::string(bytes) + "\r\n";
}

/// The reply padded with comments to at least `bytes`, none of them held whole.
Delivery oversize(const HttpReply& reply, std::uint64_t bytes, bool keep_alive) {
    const std::string piece = "<!--" + std::string(64 * 1024 - 8, '.') + "-->\n";
    const auto end = std::min(reply.body.rfind("</BCAmessage>"), reply.body.size());
    const std::uint64_t missing = bytes > reply.body.size() ? bytes - reply.body.size() : 0;
    const std::uint64_t times = (missing + piece.size() - 1) / piece.size();
    return {{SendBytes{head(reply, reply.body.size() + times * piece.size(), keep_alive) +
                       reply.body.substr(0, end)},
             SendRepeated{piece, times}, SendBytes{reply.body.substr(end)}},
            keep_alive};
}

const Fault* find(const std::vector<Fault>& faults, FaultKind kind) {
    const auto found = std::find_if(faults.begin(), faults.end(),
                                    [&](const Fault& each) { return each.kind == kind; });
    return found == faults.end() ? nullptr : &*found;
}

std::vector<Step> body_steps(const HttpReply& reply, const Fault* slow) {
    if (!slow) {
        return {SendBytes{reply.body}};
    }
    std::vector<Step> steps;
    const std::size_t piece = reply.body.size() / kSlowPieces + 1;
    for (std::size_t at = 0; at < reply.body.size(); at += piece) {
        steps.emplace_back(Wait{std::chrono::milliseconds(slow->number)});
        steps.emplace_back(SendBytes{reply.body.substr(at, piece)});
    }
    return steps;
}

/// Faults after which the connection is gone; none when there is no such fault.
std::optional<Delivery> broken_off(const HttpReply& reply, const std::vector<Fault>& faults) {
    const std::string_view half = std::string_view(reply.body).substr(0, reply.body.size() / 2);
    if (find(faults, FaultKind::kDropBeforeHeaders)) {
        return Delivery{{Drop{}}, false};
    }
    if (find(faults, FaultKind::kNotHttp)) {
        return Delivery{{SendBytes{"\x01\x02 what is this?\r\n\r\n"}}, false};
    }
    if (find(faults, FaultKind::kDropInHeaders)) {
        return Delivery{{SendBytes{"HTTP/1.1 200 OK\r\nContent-Ty"}, Drop{}}, false};
    }
    if (find(faults, FaultKind::kDropInBody)) {
        return Delivery{{SendBytes{head(reply, std::nullopt, false) + chunk(half)}, Drop{}}, false};
    }
    if (find(faults, FaultKind::kTruncate)) {
        return Delivery{{SendBytes{head(reply, reply.body.size(), false) + std::string(half)}},
                        false};
    }
    return std::nullopt;
}

Delivery send_whole(const HttpReply& reply, const std::vector<Fault>& faults, bool keep_alive) {
    if (const Fault* fault = find(faults, FaultKind::kOversize)) {
        return oversize(reply, fault->number, keep_alive);
    }
    Delivery delivery{{SendBytes{head(reply, reply.body.size(), keep_alive)}}, keep_alive};
    const Fault* delay = find(faults, FaultKind::kDelayBody);
    const Fault* slow = find(faults, FaultKind::kSlowBody);
    if (!delay && !slow) {  // headers and body in one piece
        std::get<SendBytes>(delivery.steps.front()).bytes += reply.body;
        return delivery;
    }
    if (delay) {
        delivery.steps.emplace_back(Wait{std::chrono::milliseconds(delay->number)});
    }
    for (Step& step : body_steps(reply, slow)) {
        delivery.steps.push_back(std::move(step));
    }
    return delivery;
}

}  // namespace

HttpReply status_page(int status) {
    const std::string title = std::to_string(status) + " " + std::string(status_text(status));
    return {.status = status,
            .content_type = "text/html",
            .body = "<!DOCTYPE html>\n<html><head><title>" + title + "</title></head><body><p>" +
                    title + "<br></body></html>\n"};
}

Delivery deliver(HttpReply reply, const std::vector<Fault>& faults, bool keep_alive) {
    for (const Fault& fault : faults) {
        change_reply(reply, fault);
    }
    Delivery delivery;
    if (const Fault* delay = find(faults, FaultKind::kDelayHeaders)) {
        delivery.steps.emplace_back(Wait{std::chrono::milliseconds(delay->number)});
    }
    auto broken = broken_off(reply, faults);
    Delivery rest = broken ? std::move(*broken) : send_whole(reply, faults, keep_alive);
    delivery.keep_alive = rest.keep_alive;
    for (Step& step : rest.steps) {
        delivery.steps.push_back(std::move(step));
    }
    return delivery;
}

}  // namespace zr::gateway
