#include "reply_maker.h"

#include <algorithm>

namespace zr::bench {
namespace {

/// Records of one sort, repeated within an element that holds them.
struct File {
    std::string_view element;
    std::span<const std::string_view> records;  ///< # stands for digits that vary
};

/// A reply: what stands around its files, and the files.
struct Parts {
    std::string_view head;
    std::span<const File> files;
    std::string_view tail;
};

void append_record(std::string& reply, std::string_view record, std::size_t number) {
    for (const char character : record) {
        if (character == '#') {
            reply += static_cast<char>('1' + number % 9);
            number = number / 2 + 3;
        } else {
            reply += character;
        }
    }
}

/// The reply with so many records of every sort that it has about so many bytes.
std::string make(const Parts& parts, std::size_t bytes) {
    std::size_t fixed = parts.head.size() + parts.tail.size();
    std::size_t per_round = 0;
    for (const File& file : parts.files) {
        fixed += 2 * file.element.size() + 6;
        for (const std::string_view record : file.records) {
            per_round += record.size();
        }
    }
    const std::size_t rounds = bytes > fixed ? (bytes - fixed) / per_round + 1 : 1;

    std::string reply(parts.head);
    reply.reserve(fixed + (rounds + 1) * per_round);
    for (const File& file : parts.files) {
        reply.append("<").append(file.element).append(">\n");
        for (const std::string_view record : file.records) {
            for (std::size_t round = 0; round < rounds; ++round) {
                append_record(reply, record, round);
            }
        }
        reply.append("</").append(file.element).append(">\n");
    }
    return reply.append(parts.tail);
}

// Australia.

constexpr std::string_view kAustralianHead = R"(<?xml version="1.0"?>
<BCAmessage type="RESPONSE" service-request-id="BENCH-000017">
 <BCAservices>
  <BCAservice>
   <BCAservice-code>BCA001</BCAservice-code>
   <BCAservice-data>
    <response>
     <enquiry-report>
      <primary-match type="automatic">
       <bureau-reference>186492371</bureau-reference>
       <individual>
        <individual-name>
         <family-name>Merrigold</family-name>
         <first-given-name>Quentin</first-given-name>
         <other-given-name>Ambrose</other-given-name>
        </individual-name>
        <gender type="male"/>
        <date-of-birth>1970-01-02</date-of-birth>
        <drivers-licence-number>4417AB</drivers-licence-number>
        <address type="residential-current" create-date="2009-03-04">
         <unit-number>4</unit-number>
         <street-number>12</street-number>
         <street-name>Wattlebird</street-name>
         <street-type code="RD"/>
         <suburb>Farrowdale</suburb>
         <state>NSW</state>
         <postcode>2999</postcode>
        </address>
        <employment create-date="2008-11-30">
         <employer>Tallowood Joinery</employer>
         <occupation>Cabinet maker</occupation>
        </employment>
       </individual>
)";

constexpr std::string_view kAustralianTail = R"(      </primary-match>
      <summary-data>
       <summary name="defaults" type="count">7</summary>
       <summary name="total default amount" type="amount">12345.6</summary>
       <summary name="time on file" type="months">131</summary>
      </summary-data>
     </enquiry-report>
    </response>
   </BCAservice-data>
  </BCAservice>
 </BCAservices>
</BCAmessage>
)";

constexpr std::string_view kAustralianDefault = R"(        <default>
         <account-details>
          <account-type code="CC">Continuing Credit Contract</account-type>
          <role type="principal"/>
          <client-reference>ACC-00#</client-reference>
          <default-status code="O" date="201#-04-1#">Outstanding</default-status>
         </account-details>
         <original-default>
          <date-recorded>201#-02-1#</date-recorded>
          <default-amount>14#3.50</default-amount>
          <reason-to-report>Payment default</reason-to-report>
          <credit-provider>Lanternlight Finance</credit-provider>
         </original-default>
         <current-default>
          <date-recorded>201#-03-1#</date-recorded>
          <default-amount>#21.75</default-amount>
          <reason-to-report>Payment default</reason-to-report>
          <credit-provider>Lanternlight Finance</credit-provider>
         </current-default>
        </default>
)";

constexpr std::string_view kAustralianEnquiry =
    R"(        <credit-enquiry type="credit-application" enquiry-date="201#-06-1#">
         <credit-enquirer>Harbour &amp; Hinterland Credit</credit-enquirer>
         <client-reference>HH-7#1</client-reference>
         <account-type code="PL">Personal Loan</account-type>
         <role type="principal"/>
         <enquiry-amount>1#000</enquiry-amount>
        </credit-enquiry>
)";

constexpr std::string_view kAustralianCourtAction =
    R"(        <court-action type="default-judgement">
         <action-date>201#-01-2#</action-date>
         <creditor>Copperfield Supplies</creditor>
         <court-type>Local Court</court-type>
         <plaint-number>88#/1#</plaint-number>
         <court-action-amount>2#10.00</court-action-amount>
         <court-action-status code="" date="201#-05-0#">Entered</court-action-status>
        </court-action>
)";

constexpr std::string_view kAustralianDirectorship = R"(        <directorship type="current">
         <organisation>
          <bureau-reference>99#10#</bureau-reference>
          <organisation-name>Bellbird Holdings No #</organisation-name>
          <organisation-type code="P/L"/>
          <organisation-number>00#11#22#</organisation-number>
          <organisation-details>
           <organisation-status>Registered</organisation-status>
          </organisation-details>
         </organisation>
         <date-appointed>200#-07-0#</date-appointed>
        </directorship>
)";

constexpr std::string_view kAustralianCreditRecords[] = {kAustralianDefault, kAustralianEnquiry};
constexpr std::string_view kAustralianPublicRecords[] = {kAustralianDirectorship,
                                                         kAustralianCourtAction};
constexpr File kAustralianFiles[] = {
    {"individual-consumer-credit-file", kAustralianCreditRecords},
    {"individual-commercial-credit-file", kAustralianCreditRecords},
    {"individual-public-data-file", kAustralianPublicRecords},
};

std::string make_australian(std::size_t bytes) {
    return make({kAustralianHead, kAustralianFiles, kAustralianTail}, bytes);
}

// New Zealand: a person, and a company with its directors.

constexpr std::string_view kNewZealandPersonHead = R"(<?xml version="1.0"?>
<BCAmessage type="RESPONSE" service-request-id="BENCH-000018">
<BCAservices><BCAservice><BCAservice-data><response><general-message>Made for measuring</general-message>
<enquiry-report>
<file-id match-type="exact">77120045</file-id>
<individual>
 <individual-name>
  <family-name>Kererangi</family-name>
  <first-given-name>Tamsin</first-given-name>
 </individual-name>
 <gender type="female"/>
 <date-of-birth>1971-03-04</date-of-birth>
 <address type="current" create-date="2009-03-04">
  <street-number>2/14</street-number>
  <street-name>Totara</street-name>
  <street-type code="RD"/>
  <suburb>Farrowdale</suburb>
  <city>Palmerston Bay</city>
 </address>
</individual>
)";

constexpr std::string_view kNewZealandDefault =
    R"(<default defaulter-detail-number="000#7#" joint-liability="Y">
 <load-date>201#-02-1#</load-date>
 <default-date>201#-01-1#</default-date>
 <credit-provider>Lanternlight Finance</credit-provider>
 <ANZSIC-industry>Financing</ANZSIC-industry>
 <default-original-amount>14#3.50</default-original-amount>
 <default-balance-amount>#21.75</default-balance-amount>
 <account-type code="PL">Personal Loan</account-type>
 <default-status code="O" date="201#-04-1#">Outstanding</default-status>
 <client-account-reference-id>LF-7#1#</client-account-reference-id>
 <individual-name>
  <family-name>Kererangi</family-name>
  <first-given-name>Tamsin</first-given-name>
 </individual-name>
 <consumer-default-relationship type="DF"/>
</default>
)";

constexpr std::string_view kNewZealandEnquiry = R"(<credit-enquiry create-date="201#-06-1#">
 <credit-enquirer>Harbour &amp; Hinterland Credit</credit-enquirer>
 <account-type>Personal Loan</account-type>
 <enquiry-amount>1#000</enquiry-amount>
 <client-reference>HH-7#1</client-reference>
</credit-enquiry>
)";

constexpr std::string_view kNewZealandJudgement = R"(<judgement unique-id="000#1#">
 <load-date>201#-01-2#</load-date>
 <creditor>Copperfield Supplies</creditor>
 <judgement-amount>2#10.00</judgement-amount>
 <court-type>District Court</court-type>
 <judgement-status code="">Unpaid</judgement-status>
 <individual-name>
  <family-name>Kererangi</family-name>
  <first-given-name>Tamsin</first-given-name>
 </individual-name>
 <narrative>Supply of fittings</narrative>
</judgement>
)";

constexpr std::string_view kNewZealandPersonTail = R"(<score-data>
 <scorecard-name>Consumer</scorecard-name>
 <relative-risk>1.25</relative-risk>
 <relative-risk-index>612</relative-risk-index>
 <risk-odds>14.5</risk-odds>
</score-data>
</enquiry-report></response></BCAservice-data></BCAservice></BCAservices></BCAmessage>
)";

constexpr std::string_view kNewZealandDefaults[] = {kNewZealandDefault};
constexpr std::string_view kNewZealandEnquiries[] = {kNewZealandEnquiry};
constexpr std::string_view kNewZealandJudgements[] = {kNewZealandJudgement};
constexpr File kNewZealandPersonFiles[] = {
    {"default-file", kNewZealandDefaults},
    {"default-collection-agency-file", kNewZealandDefaults},
    {"credit-file", kNewZealandEnquiries},
    {"judgement-file", kNewZealandJudgements},
};

std::string make_new_zealand_person(std::size_t bytes) {
    return make({kNewZealandPersonHead, kNewZealandPersonFiles, kNewZealandPersonTail}, bytes);
}

constexpr std::string_view kNewZealandCompanyHead = R"(<?xml version="1.0"?>
<BCAmessage type="RESPONSE" service-request-id="BENCH-000018">
<BCAservices><BCAservice><BCAservice-data><response><general-message>Made for measuring</general-message>
<enquiry-report>
<file-id match-type="exact">5512009</file-id>
<company-report>
<company>
 <company-name>Bellbird Holdings Limited</company-name>
 <registration-number>1204417</registration-number>
 <registration-area>Companies Office</registration-area>
 <company-details>
  <company-status>Registered</company-status>
  <body-type>NZ Limited Company</body-type>
  <incorporation-date>1998-04-05</incorporation-date>
 </company-details>
</company>
)";

constexpr std::string_view kNewZealandOfficer = R"(<officer-details type="Director">
 <individual-name>
  <family-name>Kererangi</family-name>
  <first-given-name>Tamsin</first-given-name>
 </individual-name>
 <occupation>Director</occupation>
 <free-format-address>
  <address-line>#4 Totara Road</address-line>
  <address-line>Palmerston Bay</address-line>
 </free-format-address>
</officer-details>
)";

constexpr std::string_view kNewZealandCompanyDefault =
    R"(<company-default unique-id="000#7#" create-date="201#-02-1#">
 <credit-provider>Lanternlight Finance</credit-provider>
 <date-account-opened>200#-02-1#</date-account-opened>
 <account-terms>20th of the month</account-terms>
 <company-default-status last-update-date="201#-05-1#">Outstanding</company-default-status>
 <default-amount>14#3.50</default-amount>
 <default-balance>#21.75</default-balance>
 <narrative>Goods supplied</narrative>
</company-default>
)";

constexpr std::string_view kNewZealandNotice =
    R"(<company-public-notice unique-id="000#" create-date="201#-03-1#">
 <notice-type>Petition</notice-type>
 <adverse indicator="YES"/>
 <narrative>Petition filed in the High Court, number #1#</narrative>
</company-public-notice>
)";

constexpr std::string_view kNewZealandCompanyTail = R"(</company-report>
)";

constexpr std::string_view kNewZealandOfficers[] = {kNewZealandOfficer};
constexpr std::string_view kNewZealandCompanyDefaults[] = {kNewZealandCompanyDefault};
constexpr std::string_view kNewZealandNotices[] = {kNewZealandNotice};
constexpr File kNewZealandCompanyFiles[] = {
    {"company-officers", kNewZealandOfficers},
    {"company-default-file", kNewZealandCompanyDefaults},
    {"company-public-notice-file", kNewZealandNotices},
};

/// Half of it the company, half its two directors.
std::string make_new_zealand_company(std::size_t bytes) {
    std::string reply =
        make({kNewZealandCompanyHead, kNewZealandCompanyFiles, kNewZealandCompanyTail}, bytes / 2);
    const std::size_t individual = kNewZealandPersonHead.find("<individual>");
    const std::size_t report_end = kNewZealandPersonTail.find("</enquiry-report>");
    for (int director = 0; director < 2; ++director) {
        std::string report = "<director-report>\n";
        report += make({kNewZealandPersonHead.substr(individual), kNewZealandPersonFiles,
                        kNewZealandPersonTail.substr(0, report_end)},
                       bytes / 4);
        reply += report + "</director-report>\n";
    }
    return reply.append(kNewZealandPersonTail.substr(report_end));
}

// The first version of the stored New Zealand reports has attributes where others have elements.

constexpr std::string_view kStoredDefault =
    R"(<default create-date="201#-02-1#" last-update-date="201#-03-1#">
 <credit-provider>Lanternlight Finance</credit-provider>
 <default-status>Payment Default</default-status>
 <default-amount>14#3.50</default-amount>
 <default-balance>#21.75</default-balance>
</default>
)";

constexpr std::string_view kStoredCollection =
    R"(<collection create-date="201#-05-1#">
 <creditor>Copperfield Supplies</creditor>
 <collection-status>Collection Dept/Agency</collection-status>
 <collection-amount>2#10.00</collection-amount>
 <collection-balance>1#.00</collection-balance>
</collection>
)";

constexpr std::string_view kStoredJudgement =
    R"(<judgement date-paid="201#-08-0#">
 <publication-date>201#-01-2#</publication-date>
 <creditor>Copperfield Supplies</creditor>
 <court-type>District Court</court-type>
 <judgement-amount>2#10.00</judgement-amount>
 <judgement-status>Paid</judgement-status>
 <narrative>Supply of fittings</narrative>
</judgement>
)";

constexpr std::string_view kStoredDefaults[] = {kStoredDefault};
constexpr std::string_view kStoredCollections[] = {kStoredCollection};
constexpr std::string_view kStoredJudgements[] = {kStoredJudgement};
constexpr File kStoredFiles[] = {
    {"default-file", kStoredDefaults},
    {"collection-file", kStoredCollections},
    {"credit-file", kNewZealandEnquiries},
    {"judgement-file", kStoredJudgements},
};

std::string make_stored_new_zealand(std::size_t bytes) {
    return make({kNewZealandPersonHead, kStoredFiles, kNewZealandPersonTail}, bytes);
}

constexpr ReplyKind kKinds[] = {
    {"au-person", "AU", "VedaXMLAU", "consumer-plus-commercial-enquiry", make_australian},
    {"nz-person", "NZ", "VedaXMLNZ", "enquiry_individual", make_new_zealand_person},
    {"nz-company", "NZ", "VedaXMLNZ", "enquiry_company_with_directors", make_new_zealand_company},
    {"b2bay-au", "AU", "B2BayAU", "consumer-enquiry", make_australian},
    {"b2bay-nz", "NZ", "B2BayNZ", "enquiry_individual", make_stored_new_zealand},
    {"b2bay-nz-v2", "NZ", "B2BayNZ_V2", "enquiry_individual", make_new_zealand_person},
};

}  // namespace

std::span<const ReplyKind> reply_kinds() { return kKinds; }

const ReplyKind* find_reply_kind(std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(kKinds), std::end(kKinds),
                     [name](const ReplyKind& kind) { return kind.name == name; });
    return found == std::end(kKinds) ? nullptr : found;
}

}  // namespace zr::bench
