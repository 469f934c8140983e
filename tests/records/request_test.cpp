#include "zrcreditbureau/request.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "records/component.h"

namespace zr {
namespace {

const DateTime kDay = DateTime::ymd(1970, 1, 2);

/// Whether an action makes a clean request dirty.
template <class Action>
bool dirties(Request& request, Action action) {
    Component::Dirty(request, false);
    action(request);
    return request.Dirty();
}

/// A value other than the one that a new request has.
Value sample(ValueType type) {
    switch (type) {
        case ValueType::kCount:
            return std::int32_t{7};
        case ValueType::kCurrency:
            return Currency::from_whole(5);
        case ValueType::kDate:
        case ValueType::kDateOrNull:
            return kDay;
        default:
            return std::string("Male");  // the one text that every text property keeps
    }
}

TEST(Request, TracksEveryPropertyThatReallyChanges) {
    for (const auto& property : request_properties()) {
        if (property.write == nullptr) {
            continue;
        }
        const auto made = Component::make_request();
        Request& request = *made;
        EXPECT_FALSE(request.Dirty());
        const Value value = sample(property.type);
        EXPECT_TRUE(dirties(request, [&](Request& it) { property.write(it, value); }))
            << property.name;
        const Value stored = property.read(request);
        EXPECT_TRUE(holds_text(stored) ? text_of(stored) == "Male" : stored == value)
            << property.name;
        EXPECT_FALSE(dirties(request, [&](Request& it) { property.write(it, value); }))
            << property.name;
    }
}

TEST(Request, ComparesTextsExactly) {
    const auto made = Component::make_request();
    Request& request = *made;
    request.LastName("Smith");
    EXPECT_TRUE(dirties(request, [](Request& it) { it.LastName("SMITH"); }));
    EXPECT_TRUE(dirties(request, [](Request& it) { it.LastName("SMITH "); }));
}

TEST(Request, KeepsCountsInTheirRange) {
    const auto made = Component::make_request();
    Request& request = *made;
    const auto index = std::ranges::find(
        request_properties(), std::string_view("XRMApplicantIndex"), &Property<Request>::name);
    index->write(request, std::int32_t{70000});
    EXPECT_EQ(request.XRMApplicantIndex(), 32767);
    request.XRMApplicantIndex(-40000);
    EXPECT_EQ(request.XRMApplicantIndex(), -32768);
    request.XRMApplicantIndex(40000);
    EXPECT_EQ(request.XRMApplicantIndex(), 32767);
    index->write(request, std::int32_t{-70000});
    EXPECT_EQ(request.XRMApplicantIndex(), -32768);
}

TEST(Request, TakesADateThatIsNoneAsNull) {
    for (const DateTime& none : {DateTime(), DateTime::ymd(2012, 2, 30), DateTime::ymd(99, 12, 31),
                                 DateTime::ymd(10000, 1, 1)}) {
        const auto made = Component::make_request();
        Request& request = *made;
        request.DateOfBirth(kDay);
        request.DateOfBirth(none);
        EXPECT_EQ(request.DateOfBirth(), DateOrNull(Null{}));
        request.DefaultNewDate(none);
        EXPECT_EQ(request.DefaultNewDate(), DateOrNull(Null{}));
        request.DefaultOccurredDate(none);
        EXPECT_EQ(request.DefaultOccurredDate(), DateTime());
    }
}

TEST(Request, TellsWhatItLooksUpInTables) {
    for (const char* name : {"Purpose", "AccountType", "StreetType", "PrevStreetType"}) {
        const auto row = std::ranges::find(request_properties(), std::string_view(name),
                                           &Property<Request>::name);
        EXPECT_NE(row->meaning.find("a description in the "), std::string_view::npos) << name;
        EXPECT_NE(row->meaning.find("an empty code"), std::string_view::npos) << name;
    }
}

TEST(Request, StartsEmpty) {
    const auto made = Component::make_request();
    Request& request = *made;
    EXPECT_EQ(request.DefaultOccurredDate(), DateTime::now().date_only());
    EXPECT_EQ(request.Gender(), "");
    EXPECT_TRUE(is_null(request.DateOfBirth()));
    EXPECT_TRUE(is_null(request.DefaultNewDate()));
    EXPECT_EQ(request.RequestXML(), "");
}

TEST(Request, MapsGenders) {
    const struct {
        const char* given;
        const char* stored;
    } cases[] = {{"m", "Male"},        {"MALE", "Male"}, {"Male", "Male"}, {"f", "Female"},
                 {"feMale", "Female"}, {"", "unknown"},  {"X", "unknown"}, {" M", "unknown"}};
    for (const auto& row : cases) {
        const auto made = Component::make_request();
        Request& request = *made;
        EXPECT_TRUE(dirties(request, [&](Request& it) { it.Gender(row.given); }));
        EXPECT_EQ(request.Gender(), row.stored);
        EXPECT_FALSE(dirties(request, [&](Request& it) { it.Gender(row.stored); }));
    }
}

TEST(Request, ReadsDatesOfBirth) {
    const DateOrNull null = Null{};
    const struct {
        DateOrNull before;
        DateOrNull given;
        DateOrNull stored;
        bool dirty;
    } cases[] = {
        {null, kDay, kDay, true},
        {null, "1970-01-02", kDay, true},
        {null, "2/01/1970", kDay, true},
        {kDay, "2 Jan 1970", kDay, false},
        {kDay, kDay, kDay, false},
        {kDay, DateTime::ymd(1970, 1, 3), DateTime::ymd(1970, 1, 3), true},
        {kDay, "", null, true},
        {kDay, null, null, true},
        {null, "not a date", null, false},
        {null, "", null, false},
        {null, null, null, false},
    };
    for (const auto& row : cases) {
        const auto made = Component::make_request();
        Request& request = *made;
        request.DateOfBirth(row.before);
        EXPECT_EQ(dirties(request, [&](Request& it) { it.DateOfBirth(row.given); }), row.dirty);
        EXPECT_EQ(request.DateOfBirth(), row.stored);
    }
}

TEST(Request, KeepsNewDatesOfDefaultsAsGiven) {
    const DateOrNull null = Null{};
    const DateOrNull text = "1970-01-02";
    const struct {
        DateOrNull before;
        DateOrNull given;
        DateOrNull stored;
        bool dirty;
    } cases[] = {
        {null, kDay, kDay, true},    {null, text, text, true}, {text, text, text, false},
        {kDay, kDay, kDay, false},   {kDay, null, null, true}, {kDay, "never", null, true},
        {null, "never", null, true}, {null, null, null, true},
    };
    for (const auto& row : cases) {
        const auto made = Component::make_request();
        Request& request = *made;
        request.DefaultNewDate(row.before);
        EXPECT_EQ(dirties(request, [&](Request& it) { it.DefaultNewDate(row.given); }), row.dirty);
        EXPECT_EQ(request.DefaultNewDate(), row.stored);
    }
}

TEST(Request, KeepsOptions) {
    const auto made = Component::make_request();
    Request& request = *made;
    EXPECT_FALSE(request.OptionChecked("score"));
    EXPECT_EQ(request.OptionValue("score"), "");
    EXPECT_EQ(request.OptionTag("score"), "");

    EXPECT_FALSE(dirties(request, [](Request& it) { it.OptionTag("tagged", "T"); }));
    EXPECT_FALSE(request.OptionChecked("tagged"));
    EXPECT_EQ(request.OptionTag("TAGGED"), "T");
    // Creating an option is a change, even with the value that an absent one reads as.
    EXPECT_TRUE(dirties(request, [](Request& it) { it.OptionChecked("score", false); }));
    EXPECT_FALSE(dirties(request, [](Request& it) { it.OptionChecked("SCORE", false); }));
    EXPECT_TRUE(dirties(request, [](Request& it) { it.OptionChecked("Score", true); }));
    EXPECT_TRUE(request.OptionChecked("score"));
    EXPECT_TRUE(dirties(request, [](Request& it) { it.OptionValue("info", ""); }));
    EXPECT_FALSE(dirties(request, [](Request& it) { it.OptionValue("info", ""); }));
    EXPECT_TRUE(dirties(request, [](Request& it) { it.OptionValue("tagged", "V"); }));
    EXPECT_EQ(request.OptionTag("tagged"), "T");
    EXPECT_FALSE(dirties(request, [](Request& it) { it.OptionsClear(); }));
    EXPECT_FALSE(request.OptionChecked("score"));
    EXPECT_EQ(request.OptionTag("tagged"), "");
}

TEST(Request, ClearsForAnotherSubjectOrAltogether) {
    const auto kept_always = [](std::string_view name) {
        return name.starts_with("Prev") || name.starts_with("Default");
    };
    const auto kept_for_another_subject = [](std::string_view name) {
        return name == "ServiceName" || name == "ProductId" || name == "TransactionReference" ||
               name == "RequestXML" || name == "Dirty";
    };
    const auto owned = [](const Value& value) {
        return holds_text(value) ? Value(std::string(text_of(value))) : value;
    };
    for (const bool clear_all : {false, true}) {
        const auto made = Component::make_request();
        Request& request = *made;
        for (const auto& property : request_properties()) {
            if (property.write != nullptr) {
                property.write(request, sample(property.type));
            }
        }
        Component::RequestXML(request, "Male");
        request.OptionChecked("score", true);
        const auto response = request.Response();
        std::vector<Value> filled;
        for (const auto& property : request_properties()) {
            filled.push_back(owned(property.read(request)));
        }
        clear_all ? request.Clear() : request.Clear(false);

        const auto fresh = Component::make_request();
        for (std::size_t at = 0; at < filled.size(); ++at) {
            const auto& property = request_properties()[at];
            const bool kept = kept_always(property.name) ||
                              (!clear_all && kept_for_another_subject(property.name));
            EXPECT_EQ(owned(property.read(request)),
                      kept ? filled[at] : owned(property.read(*fresh)))
                << property.name << " when clear_all is " << clear_all;
        }
        EXPECT_FALSE(request.OptionChecked("score"));
        EXPECT_EQ(request.Response() == response, !clear_all);
    }
}

TEST(Request, AttachesItsResponse) {
    const auto made = Component::make_request();
    Request& request = *made;
    const auto first = request.Response();
    EXPECT_EQ(request.Response(), first);
    const auto other = Component::make<const Response>();
    request.Response(other);
    EXPECT_EQ(request.Response(), other);
    request.Response(nullptr);
    EXPECT_NE(request.Response(), nullptr);
    EXPECT_FALSE(request.Dirty());
}

TEST(Response, StartsAsACompanyAndClearsToAPerson) {
    const auto response = Component::make<Response>();
    EXPECT_TRUE(response->Company());
    EXPECT_EQ(response->Name(), "");
    Component::set(response->LastName, "SMITH");
    Component::set(response->CompanyName, "ACME");
    EXPECT_EQ(response->Name(), "ACME");
    Component::set(response->Individual, true);
    EXPECT_EQ(response->Name(), "SMITH, ");
    EXPECT_FALSE(response->Company());
}

TEST(Response, OfAnEnquiryIsANewOne) {
    const auto made = Component::make_request();
    Response& first = Component::new_response(*made);
    Component::set(first.DateOfBirth, kDay);
    Component::statistics(first, RecordFamily::kDefault).loaded_value = Currency::from_whole(1);
    Component::lines(first).AddElement("g", "s", "n", "d");
    Component::set(Component::add(Component::selections(first)).CompanyName, "ACME");
    const auto held = made->Response();
    const Response& response = Component::new_response(*made);
    EXPECT_EQ(held->DateOfBirth(), DateOrNull(kDay));
    EXPECT_EQ(held->DefaultLoadedValue(), Currency::from_whole(1));
    EXPECT_EQ(held->ResponseElements().Item(1).ResponseDescription(), "d");
    EXPECT_EQ(held->CompanySelections().Item(1).CompanyName(), "ACME");
    EXPECT_EQ(response.DateOfBirth(), DateOrNull(std::string()));
    EXPECT_TRUE(is_null(response.DisqualifiedDirectorshipUntil()));
    EXPECT_EQ(response.Name(), ", ");
    EXPECT_EQ(response.ResponseElements().Count(), 0);
    EXPECT_EQ(response.CompanySelections().Count(), 0);
    EXPECT_GE(response.ResponseDate(), DateTime::now().date_only());
    for (const auto& property : response_properties()) {
        const Value value = property.read(response);
        if (property.type == ValueType::kCount) {
            EXPECT_EQ(value, Value(std::int32_t{0})) << property.name;
        } else if (property.type == ValueType::kCurrency) {
            EXPECT_EQ(value, Value(Currency())) << property.name;
        } else if (property.type == ValueType::kText && property.name != "Name") {
            EXPECT_EQ(text_of(value), "") << property.name;
        }
    }
}

}  // namespace
}  // namespace zr
