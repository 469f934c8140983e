// The paths of New Zealand replies, compiled once against one table of names.
#pragma once

#include "platform/xml_document.h"
#include "reports/statistics.h"
#include "reports/writer.h"
#include "services/reply_checks.h"
#include "services/vedaxml_nz/company_search.h"
#include "services/vedaxml_nz/summary.h"

namespace zr::new_zealand {

struct ReplyPaths {
    ReplyPaths();

    // First, since everything below is compiled against it.
    XmlNames names;

    ReplyCheckPaths checks;
    NewZealandSearchPaths search;
    SummaryPaths summary;
    StatisticsTable individual_statistics;
    StatisticsTable company_statistics;
    layout::CompiledLayout individual_layout;
    layout::CompiledLayout company_layout;

    // In the document, under whichever response or enquiry report has them.
    XmlPath response;
    XmlPath company;
    XmlPath company_report;
    XmlPath company_of_report;
    XmlPath directors;
    XmlPath licence_report;
    XmlPath fines_report;
    // Under the response.
    XmlPath general_message;
    // Under an individual's report.
    XmlPath file_age;
    // Under the fines report.
    XmlPath fines_balance;
    XmlPath fines_amount;
    // Under the company.
    XmlPath company_details;
    XmlPath company_name;
    XmlPath company_number;
};

/// The one instance, made at first use.
const ReplyPaths& reply_paths();

}  // namespace zr::new_zealand
