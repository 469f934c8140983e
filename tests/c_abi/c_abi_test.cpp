// The shared library as a host in C uses it: through its header and nothing else.
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/c_host.h"

namespace {

using zr::test::date;
using zr::test::object;
using zr::test::text;

zr_value number(std::int32_t value) {
    zr_value made{};
    made.type = ZR_INT32;
    made.as.int32 = value;
    return made;
}
zr_value boolean(bool value) {
    zr_value made{};
    made.type = ZR_BOOLEAN;
    made.as.boolean = value ? 1 : 0;
    return made;
}
zr_value empty() { return {}; }

std::string cpp(zr_text value) { return {value.data, value.size}; }

std::string last_error() {
    zr_error error;
    zr_last_error(&error);
    return std::to_string(error.number) + " " + cpp(error.description);
}

using Values = std::vector<zr_value>;

zr_value get(zr_handle self, const char* name, const Values& given = {}) {
    zr_value result{};
    EXPECT_EQ(zr_get_by_name(self, name, given.data(), given.size(), &result), ZR_OK)
        << name << ": " << last_error();
    return result;
}
/// A handle that is released at the end of the scope.
class Held {
  public:
    explicit Held(zr_value value) : handle_(value.as.object) { EXPECT_EQ(value.type, ZR_OBJECT); }
    explicit Held(const char* name) { EXPECT_EQ(zr_create(name, &handle_), ZR_OK); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() { EXPECT_EQ(zr_release(handle_), ZR_OK); }
    operator zr_handle() const { return handle_; }

  private:
    zr_handle handle_ = 0;
};

void put(zr_handle self, const char* name, const Values& values) {
    EXPECT_EQ(zr_put_by_name(self, name, values.data(), values.size()), ZR_OK)
        << name << ": " << last_error();
}

const std::string& reply() {
    static const std::string kReply = [] {
        std::ifstream in(ZR_TEST_DATA "/../examples/vedaxml_au_adverse.xml");
        std::stringstream all;
        all << in.rdbuf();
        return all.str();
    }();
    return kReply;
}

/// Creates, translates and reads, as each host does; tells the lines.
std::string translated_lines() {
    const Held bureau("ZRCreditBureau5.ZRCreditBureau");
    EXPECT_EQ(get(bureau, "Initialise", {text("AU")}).as.boolean, 1);
    const Held request(get(bureau, "CreateRequest"));
    put(request, "ServiceName", {text("VedaXMLAU")});
    put(request, "ProductId", {text("consumer-enquiry")});
    EXPECT_EQ(
        get(bureau, "BuildResponse", {object(request), date(2012, 6, 5), text(reply())}).as.boolean,
        1);
    const Held response(get(request, "Response"));
    const Held lines(get(response, "ResponseElements"));
    zr_handle walk = 0;
    EXPECT_EQ(zr_enumerate(lines, &walk), ZR_OK);
    std::string all;
    for (zr_value line{}; zr_next(walk, &line) == ZR_OK;) {
        for (const char* member :
             {"ResponseGroupSort", "ResponseSubGroup", "ResponseName", "ResponseDescription"}) {
            all += cpp(get(line.as.object, member).as.text) + "|";
        }
        EXPECT_EQ(zr_release(line.as.object), ZR_OK);
    }
    EXPECT_EQ(zr_release(walk), ZR_OK);

    std::vector<std::int32_t> ids(4);
    const Held first(get(lines, "Item", {number(1)}));
    EXPECT_EQ(zr_member_id(first, "responsegroupsort", &ids[0]), ZR_OK);
    EXPECT_EQ(zr_member_id(first, "ResponseSubGroup", &ids[1]), ZR_OK);
    EXPECT_EQ(zr_member_id(first, "ResponseName", &ids[2]), ZR_OK);
    EXPECT_EQ(zr_member_id(first, "ResponseDescription", &ids[3]), ZR_OK);
    zr_handle owner = 0;
    zr_table table{};
    EXPECT_EQ(zr_read_table(lines, ids.data(), ids.size(), &owner, &table), ZR_OK);
    EXPECT_EQ(table.rows, static_cast<std::size_t>(get(lines, "Count").as.int32));
    std::string at_once;
    for (std::size_t i = 0; i < table.rows * table.columns; ++i) {
        at_once.append(table.bytes + table.offsets[i], table.bytes + table.offsets[i + 1]);
        at_once += "|";
    }
    EXPECT_EQ(at_once, all);
    EXPECT_EQ(zr_release(owner), ZR_OK);
    return all;
}

TEST(CAbi, TranslatesAndReadsLineByLineAndAtOnce) {
    const std::string lines = translated_lines();
    EXPECT_GT(lines.size(), 1000U);
    EXPECT_EQ(cpp(zr_version()), "5.0.0");
    EXPECT_NE(cpp(zr_describe()).find(R"("name":"ExecuteCreditEnquiry","id":4)"),
              std::string::npos);
}

// Every facade in a thread of its own, handles shared between them.
TEST(CAbi, ServesThreadsSideBySide) {
    const Held shared("ZRStringBuilder");
    const std::string expected = translated_lines();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 10; ++round) {
                EXPECT_EQ(translated_lines(), expected);
                for (int hold = 0; hold < 200; ++hold) {
                    EXPECT_EQ(zr_retain(shared), ZR_OK);
                    EXPECT_EQ(zr_release(shared), ZR_OK);
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(CAbi, TellsWhatIsNoHandle) {
    zr_handle released = 0;
    ASSERT_EQ(zr_create("ZRXMLBuilder", &released), ZR_OK);
    const zr_handle once = released;
    EXPECT_EQ(zr_retain(once), ZR_OK);
    EXPECT_EQ(zr_release(once), ZR_OK);
    EXPECT_EQ(zr_release(once), ZR_OK);
    std::vector<zr_handle> wrong = {0, 1, released, released + 1, ~zr_handle{0}};
    std::mt19937_64 random(5);
    for (int i = 0; i < 1000; ++i) {
        wrong.push_back(random());
    }
    const Held bureau("ZRCreditBureau");
    for (const zr_handle handle : wrong) {
        zr_value result{};
        zr_text name{};
        zr_table table{};
        zr_handle made = 0;
        const std::int32_t id = 1;
        EXPECT_EQ(zr_get(handle, 1, nullptr, 0, &result), ZR_BAD_HANDLE);
        EXPECT_EQ(zr_put(handle, 1, &result, 1), ZR_BAD_HANDLE);
        EXPECT_EQ(zr_call(handle, 1, nullptr, nullptr, 0, &result), ZR_BAD_HANDLE);
        EXPECT_EQ(zr_retain(handle), ZR_BAD_HANDLE);
        EXPECT_EQ(zr_release(handle), handle == 0 ? ZR_OK : ZR_BAD_HANDLE);
        EXPECT_EQ(zr_class_name(handle, &name), ZR_BAD_HANDLE);
        EXPECT_EQ(zr_enumerate(handle, &made), ZR_BAD_HANDLE);
        EXPECT_EQ(zr_next(handle, &result), ZR_BAD_HANDLE);
        EXPECT_EQ(zr_read_table(handle, &id, 1, &made, &table), ZR_BAD_HANDLE);
        const zr_value argument = object(handle);
        EXPECT_EQ(zr_get_by_name(bureau, "ExecuteCreditEnquiry", &argument, 1, &result),
                  ZR_BAD_TYPE);
    }
    EXPECT_NE(last_error(), "0 ");
    // Of the wrong kind for the function.
    zr_value item{};
    zr_handle walk = 0;
    EXPECT_EQ(zr_next(bureau, &item), ZR_BAD_HANDLE);
    EXPECT_EQ(zr_enumerate(bureau, &walk), ZR_BAD_HANDLE);
    // A slot that is used again has another handle.
    const Held next("ZRXMLBuilder");
    EXPECT_NE(static_cast<zr_handle>(next), released);
    EXPECT_EQ(zr_retain(released), ZR_BAD_HANDLE);
}

TEST(CAbi, TellsWhatIsNoCall) {
    const Held bureau("ZRCreditBureau");
    const Held builder("ZRXMLBuilder");
    zr_value result{};
    zr_value unknown{};
    unknown.type = 77;
    struct Case {
        zr_handle self;
        const char* name;
        Values given;
        zr_status status;
    };
    zr_value nowhere = text("x");
    nowhere.as.text.data = nullptr;
    for (const Case& wrong :
         std::vector<Case>{{bureau, "Initialize", {text("AU")}, ZR_UNKNOWN},
                           {bureau, "Initialise", {}, ZR_BAD_COUNT},
                           {bureau, "Initialise", Values(9, text("AU")), ZR_BAD_COUNT},
                           {bureau, "Initialise", {number(1)}, ZR_BAD_TYPE},
                           {bureau, "Initialise", {unknown}, ZR_BAD_TYPE},
                           {bureau, "Initialise", {nowhere}, ZR_BAD_TYPE},
                           {bureau, "Initialise", {object(bureau)}, ZR_BAD_TYPE},
                           {builder, "WriteDate", {date(2011, 2, 30)}, ZR_BAD_TYPE},
                           {builder, "WriteAttribute", {text("a"), text("b")}, ZR_RAISED}}) {
        EXPECT_EQ(
            zr_get_by_name(wrong.self, wrong.name, wrong.given.data(), wrong.given.size(), &result),
            wrong.status)
            << wrong.name;
    }
    EXPECT_EQ(last_error().substr(0, 12), "-2147221504 ");
    EXPECT_EQ(zr_get(bureau, 4711, nullptr, 0, &result), ZR_UNKNOWN);
    EXPECT_EQ(zr_get(bureau, 1, nullptr, 1, &result), ZR_BAD_POINTER);
    EXPECT_EQ(zr_get_by_name(bureau, nullptr, nullptr, 0, &result), ZR_BAD_POINTER);
    EXPECT_EQ(zr_create(nullptr, nullptr), ZR_BAD_POINTER);
    zr_handle made = 0;
    EXPECT_EQ(zr_create("ZRCreditBureau5.Request", &made), ZR_UNKNOWN);
    const zr_value country = text("AU");
    EXPECT_EQ(zr_put_by_name(bureau, "Country", &country, 1), ZR_NOT_ALLOWED);
}

TEST(CAbi, TakesNamesAndItsOwnTexts) {
    const Held builder("ZRXMLBuilder");
    const Values values = {text("t"), boolean(true), text("")};
    const std::vector<const char*> names = {nullptr, "dontwriteifvalueblank", "TagValue"};
    EXPECT_EQ(zr_call_by_name(builder, "WriteTagWithText", values.data(), names.data(), 3, nullptr),
              ZR_OK);
    const std::vector<const char*> behind = {"TagName", nullptr, "TagValue"};
    EXPECT_EQ(
        zr_call_by_name(builder, "WriteTagWithText", values.data(), behind.data(), 3, nullptr),
        ZR_BAD_COUNT);
    put(builder, "Encoding", {text("UTF-8")});
    // What a function gave is still there while it is passed on.
    const zr_value header = get(builder, "XMLHeader");
    const Values passed = {header};
    get(builder, "WriteRaw", passed);
    EXPECT_EQ(cpp(get(builder, "XML", {empty(), empty()}).as.text),
              R"(<?xml version="1.0" encoding="UTF-8"?>)");
}

}  // namespace
