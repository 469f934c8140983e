// Faults: how they are written, how often they apply, and what they do to a reply.
#include "bureau_gateway/faults.h"

#include <gtest/gtest.h>

#include "bureau_gateway/net/encoding.h"
#include "bureau_gateway/net/http_auth.h"
#include "bureau_gateway/net/http_reply.h"

namespace zr::gateway {
namespace {

TEST(GatewayFaults, AreReadFromText) {
    const Fault status = parse_fault("Status=503@2");
    EXPECT_EQ(status.kind, FaultKind::kStatus);
    EXPECT_EQ(status.number, 503u);
    EXPECT_EQ(status.count, 2u);
    EXPECT_EQ(parse_fault("delay-before-tls=10").kind, FaultKind::kDelayTls);
    EXPECT_EQ(parse_fault("charset=UTF-16").text, "utf-16");
    EXPECT_EQ(parse_fault("bom").text, "");
    for (const FaultRow& row : fault_rows()) {
        const std::string value = row.value == FaultValue::kNumber ? "=" + std::to_string(row.high)
                                  : row.value == FaultValue::kText ? "=x"
                                                                   : "";
        const std::string spec = std::string(row.name) + value;
        EXPECT_EQ(parse_fault(spec).kind, row.kind) << spec;
        EXPECT_EQ(row.whole_server, [&] {
            try {
                parse_exchange_fault(spec);
                return false;
            } catch (const std::invalid_argument&) {
                return true;
            }
        }()) << spec;
    }
    for (const char* spec : {"",
                             "=",
                             "@1",
                             "unknown",
                             "status",
                             "status=",
                             "status=9",
                             "status=600",
                             "status=abc",
                             "status=200x",
                             "html=1",
                             "html=",
                             "html@0",
                             "html@",
                             "html@x",
                             "html@-1",
                             "charset",
                             "charset=",
                             "charset=a b",
                             "charset=a\r\nb",
                             "oversize=99999999999999999999",
                             "delay-body=60001"}) {
        EXPECT_THROW(parse_fault(spec), std::invalid_argument) << spec;
    }
}

TEST(GatewayFaults, CountsRunOut) {
    FaultBoard board({parse_fault("html@2"), parse_fault("cert-host@1"), parse_fault("bom")});
    EXPECT_TRUE(board.take(FaultKind::kCertHost));
    EXPECT_FALSE(board.take(FaultKind::kCertHost));
    EXPECT_EQ(board.take_exchange_faults().size(), 2u);
    EXPECT_EQ(board.take_exchange_faults().size(), 2u);
    EXPECT_EQ(board.take_exchange_faults().size(), 1u);
    board.set({});
    EXPECT_TRUE(board.take_exchange_faults().empty());
}

/// What would be on the wire, with the waits and the drop spelled out.
std::string wire(const Delivery& delivery) {
    struct Writer {
        std::string operator()(const SendBytes& step) const { return step.bytes; }
        std::string operator()(const SendRepeated& step) const {
            std::string text;
            for (std::uint64_t i = 0; i < step.times; ++i) {
                text += step.piece;
            }
            return text;
        }
        std::string operator()(const Wait&) const { return "{wait}"; }
        std::string operator()(const Drop&) const { return "{drop}"; }
    };
    std::string text;
    for (const Step& step : delivery.steps) {
        text += std::visit(Writer{}, step);
    }
    return text;
}

std::string wire(const char* fault, bool keep_alive = true) {
    return wire(deliver({.body = "<BCAmessage>zoë and a long enough text</BCAmessage>"},
                        {parse_fault(fault)}, keep_alive));
}

TEST(GatewayFaults, ShapeTheReply) {
    struct Case {
        const char* fault;
        const char* start;     ///< of what is sent
        const char* contains;  ///< somewhere in it
        const char* end;
    };
    const Case cases[] = {
        {"status=418", "HTTP/1.1 418 ", "\r\nContent-Type: text/html", "</html>\n"},
        {"html", "HTTP/1.1 200 OK\r\n", "\r\nContent-Type: text/html", "</html>\n"},
        {"redirect", "HTTP/1.1 302 ", "\r\nLocation: https://", "</html>\n"},
        {"delay-headers=5", "{wait}HTTP/1.1 200", "", "</BCAmessage>"},
        {"delay-body=5", "HTTP/1.1 200", "\r\n\r\n{wait}<BCAmessage>", "</BCAmessage>"},
        {"slow-body=5", "HTTP/1.1 200", "\r\n\r\n{wait}<", "{wait}age>"},
        {"drop-before-headers", "{drop}", "", "{drop}"},
        {"drop-in-headers", "HTTP/1.1 200 OK\r\n", "", "Content-Ty{drop}"},
        {"drop-in-body", "HTTP/1.1 200", "chunked", "\r\n{drop}"},
        {"truncate", "HTTP/1.1 200", "Content-Length: 52\r\n", "a lon"},
        {"malformed", "HTTP/1.1 200", "Content-Length: 45\r\n", "<unfinished"},
        {"empty", "HTTP/1.1 200", "Content-Length: 0\r\n", "\r\n\r\n"},
        {"not-http", "\x01", "", "\r\n"},
        {"entity", "HTTP/1.1 200", "<!ENTITY", "</BCAmessage>\n"},
        {"deep", "HTTP/1.1 200", "<deep><deep>", "</deep></BCAmessage>"},
        {"attributes", "HTTP/1.1 200", " a99999=\"\"", "/></BCAmessage>"},
        {"charset=utf-16", "HTTP/1.1 200", "charset=utf-16\r\n", "</BCAmessage>"},
        {"charset=iso-8859-1", "HTTP/1.1 200", "zo\xEB and", "</BCAmessage>"},
        {"bom", "HTTP/1.1 200", "text/xml\r\n", "</BCAmessage>"},
        {"bom", "HTTP/1.1 200", "\r\n\r\n\xEF\xBB\xBF<BCAmessage>", "</BCAmessage>"},
        {"bom=utf-16be", "HTTP/1.1 200", "\xFE\xFF", ">"},
    };
    for (const Case& each : cases) {
        const std::string sent = wire(each.fault);
        EXPECT_TRUE(sent.starts_with(each.start)) << each.fault << ": " << sent.substr(0, 200);
        EXPECT_NE(sent.find(each.contains), std::string::npos) << each.fault;
        EXPECT_TRUE(sent.ends_with(each.end)) << each.fault;
    }
}

TEST(GatewayFaults, LengthsAreTrueUnlessTheFaultIsALength) {
    for (const char* fault : {"oversize=200000", "oversize=1", "deep", "slow-body=1", "html"}) {
        std::string sent = wire(fault);
        for (auto at = sent.find("{wait}"); at != std::string::npos; at = sent.find("{wait}")) {
            sent.erase(at, 6);
        }
        const auto body = sent.find("\r\n\r\n") + 4;
        EXPECT_NE(sent.find("Content-Length: " + std::to_string(sent.size() - body) + "\r\n"),
                  std::string::npos)
            << fault;
    }
    EXPECT_GE(wire("oversize=200000").size(), 200000u);
}

TEST(GatewayFaults, ConnectionsAreKeptUnlessTheFaultEndsThem) {
    for (const char* fault : {"status=500", "html", "empty", "oversize=1000", "malformed"}) {
        EXPECT_TRUE(deliver({}, {parse_fault(fault)}, true).keep_alive) << fault;
        EXPECT_NE(wire(fault, false).find("Connection: close"), std::string::npos) << fault;
    }
    for (const char* fault : {"truncate", "not-http", "drop-in-body"}) {
        EXPECT_FALSE(deliver({}, {parse_fault(fault)}, true).keep_alive) << fault;
    }
}

TEST(GatewayEncoding, PointsBeyondTheEncoding) {
    EXPECT_EQ(encode("aë€😀", "iso-8859-1"), "a\xEB??");
    EXPECT_EQ(encode("a😀", "utf-16be"), std::string("\0a\xD8\x3D\xDE\x00", 6));
    EXPECT_EQ(encode("€", "utf-16le"), "\xAC\x20");
    EXPECT_EQ(encode("\xC3", "iso-8859-1").size(), 1u);  // cut off: no reading beyond the end
}

TEST(GatewayHttpAuth, ChecksBasicAndDigest) {
    const HttpGuard none(HttpAuth::kNone, "u", "p");
    EXPECT_TRUE(none.admits("POST", ""));
    EXPECT_EQ(none.challenge(), "");

    const HttpGuard basic(HttpAuth::kBasic, "Aladdin", "open sesame");
    EXPECT_TRUE(basic.admits("POST", "Basic QWxhZGRpbjpvcGVuIHNlc2FtZQ=="));
    EXPECT_TRUE(basic.admits("POST", "basic QWxhZGRpbjpvcGVuIHNlc2FtZQ=="));
    for (const char* header : {"", "Basic", "Basic ", "Basic QWxhZGRpbjpvcGVu", "Digest x"}) {
        EXPECT_FALSE(basic.admits("POST", header)) << header;
    }

    const HttpGuard digest(HttpAuth::kDigest, "u", "p");
    EXPECT_NE(digest.challenge().find("nonce=\""), std::string::npos);
    for (const char* header : {"", "Digest ", "Basic dTpw", "Digest username=\"u\", nonce=\"",
                               "Digest username=\"u\", nonce=\"x\", qop=auth, response=\"\""}) {
        EXPECT_FALSE(digest.admits("POST", header)) << header;
    }
}

}  // namespace
}  // namespace zr::gateway
