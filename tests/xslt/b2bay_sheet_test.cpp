// The pages of stored B2Bay reports, what the component tells every sheet, and which reports a
// sheet takes for its own.
#include <gtest/gtest.h>

#include <string>

#include "xslt/page.h"
#include "xslt/sheet.h"

namespace zr {
namespace {

// A service, an example of it and the product under which it is translated.
struct Case {
    const char* service;
    const char* name;
    const char* product;
};
constexpr Case kStored[] = {
    {"b2bay_au", "au", "consumer-enquiry"},
    {"b2bay_nz", "individual", "enquiry_individual"},
    {"b2bay_nz", "company", "enquiry_company"},
    {"b2bay_nz_v2", "individual", "enquiry_individual"},
    {"b2bay_nz_v2", "company_directors", "enquiry_company_with_directors"},
};
constexpr Case kVedaXml[] = {
    {"au", "adverse", "consumer-enquiry"},
    {"nz", "person", "enquiry_individual"},
    {"nz", "company_directors", "enquiry_company_with_directors"},
};

TEST(B2BaySheets, ShowWhatTheReportLinesShow) {
    for (const Case& each : kStored) {
        sheet::expect_whole_page(each.service, each.name);
        sheet::expect_every_line(each.service, each.name, each.product);
        sheet::expect_no_markup(each.service, {each.name});
    }
}

TEST(B2BaySheets, KnowEveryCode) {
    constexpr sheet::CodePlace kStreets = {
        "StreetTypes",
        "<individual><address><street-type code='CODE'/><city>END</city></address></individual>"};
    constexpr sheet::CodePlace kNotes = {"NotesTypeCodes",
                                         "<note-file><note type='CODE'>END</note></note-file>"};
    sheet::expect_codes("b2bay_nz", "enquiry_individual",
                        {kStreets,
                         kNotes,
                         {"DefaultStatusCodes",
                          "<default-file><default><default-status>CODE</default-status>"
                          "</default></default-file>"}});
    sheet::expect_codes("b2bay_nz_v2", "enquiry_individual",
                        {kStreets,
                         kNotes,
                         {"AccountTypes",
                          "<default-file><default><account-type code='CODE'/></default>"
                          "</default-file>"}});
}

TEST(EverySheet, HasTheFiguresOfTheResponse) {
    for (const Case& each : kVedaXml) sheet::expect_figures(each.service, each.name, each.product);
    for (const Case& each : kStored) {
        sheet::expect_figures(each.service, each.name, each.product);
        sheet::expect_figures(each.service, each.name, each.product, true);
    }
    // Of a company whose records the statistics do not read, the directors' are all they have.
    sheet::expect_figures("nz", "company_directors", "enquiry_company_with_directors", true);
}

TEST(EverySheet, RefusesReportsOfOtherServices) {
    const auto refuses = [](const Case& sheet, const Case& report) {
        const std::string html =
            sheet::render(sheet.service, sheet::example(report.service, report.name));
        return page::between(html, "<h1>", "</h1>") == "This sheet is not for this report";
    };
    const Case all[] = {kVedaXml[0], kVedaXml[1], kVedaXml[2], kStored[1],
                        kStored[2],  kStored[3],  kStored[4]};
    for (const Case& sheet : all) {
        for (const Case& report : all) {
            const bool own = std::string_view(sheet.service) == report.service;
            // Without the name of the service, a person's report of version 2 cannot be told from
            // one of VedaXML that has nothing more.
            if (&report == &all[5] && std::string_view(sheet.service) == "nz") continue;
            if (&report == &all[2] && std::string_view(sheet.service) == "b2bay_nz_v2") continue;
            EXPECT_EQ(refuses(sheet, report), !own)
                << sheet.service << " on " << report.service << ' ' << report.name;
        }
    }
}

TEST(EverySheet, SaysWhatTheComponentKnows) {
    const std::string shown = page::plain_text(
        sheet::render_by_component("au", sheet::example("au", "adverse"), "consumer-enquiry"));
    for (const char* said :
         {" Report of 15 Jun 2012 , born 5 Nov 1971 , bureau file 100000002 ",
          " Product consumer-enquiry. ", " Last year 2 years 3 years 4 years ",
          " Defaults 4 2 $24,982.75 $10,418.60 3 3 3 4 ", " Enquiries 5 3 3 5 5 ",
          " Defaults: 2009: 1; 2011: 2 (1 open); 2012: 1 (1 open); "}) {
        EXPECT_NE(shown.find(said), std::string::npos) << said << "\nin\n" << shown;
    }
}

TEST(EverySheet, MarksWhatMustNotBeOverlooked) {
    struct Mark {
        Case of;
        const char* said;
    };
    for (const Mark& each : {
             Mark{kVedaXml[0], "Match type: Partial, not exact: confirm the identity"},
             {kVedaXml[0], "Disqualified as director until 1 May 2013"},
             {kVedaXml[0], "Director of DUMMY DECOR LIMITED: Externally administered"},
             {kVedaXml[1],
              "Alias with another date of birth: Ginevra Zoë Trialby, born 3 Aug 1986"},
             {kVedaXml[1], "Driver licence check, first given name: No Match"},
             {kVedaXml[1], "Status of defaults, not explained by the bureau: P, O"},
             {kVedaXml[2], "Company status: In Receivership"},
             {kStored[3], "White pages: No match"},
             {kStored[3], "Officer of DEMONSTRA BUILDERS LIMITED: Struck off"},
         }) {
        const std::string overview = page::plain_text(
            "<body>" + page::between(sheet::render(each.of.service,
                                                   sheet::example(each.of.service, each.of.name)),
                                     "<h2 id=\"overview\">", "</section>"));
        EXPECT_NE(overview.find(each.said), std::string::npos) << each.said << "\nin\n" << overview;
    }
}

}  // namespace
}  // namespace zr
