#include "reply_maker.h"

#include <string_view>

namespace zr::bench {
namespace {

constexpr std::string_view kHead =
    R"(<?xml version="1.0"?>
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

constexpr std::string_view kTail =
    R"(      </primary-match>
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

// One record of a kind; # stands for digits that vary from record to record.
constexpr std::string_view kDefault =
    R"(        <default>
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

constexpr std::string_view kEnquiry =
    R"(        <credit-enquiry type="credit-application" enquiry-date="201#-06-1#">
         <credit-enquirer>Harbour &amp; Hinterland Credit</credit-enquirer>
         <client-reference>HH-7#1</client-reference>
         <account-type code="PL">Personal Loan</account-type>
         <role type="principal"/>
         <enquiry-amount>1#000</enquiry-amount>
        </credit-enquiry>
)";

constexpr std::string_view kCourtAction =
    R"(        <court-action type="default-judgement">
         <action-date>201#-01-2#</action-date>
         <creditor>Copperfield Supplies</creditor>
         <court-type>Local Court</court-type>
         <plaint-number>88#/1#</plaint-number>
         <court-action-amount>2#10.00</court-action-amount>
         <court-action-status code="" date="201#-05-0#">Entered</court-action-status>
        </court-action>
)";

constexpr std::string_view kDirectorship =
    R"(        <directorship type="current">
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

}  // namespace

std::string make_australian_reply(std::size_t bytes) {
    const std::size_t per_round =
        2 * (kDefault.size() + kEnquiry.size()) + kCourtAction.size() + kDirectorship.size();
    const std::size_t fixed = kHead.size() + kTail.size() + 300;
    const std::size_t rounds = bytes > fixed ? (bytes - fixed) / per_round + 1 : 1;

    std::string reply;
    reply.reserve(bytes + 2 * per_round);
    reply += kHead;
    for (const std::string_view file :
         {"individual-consumer-credit-file", "individual-commercial-credit-file"}) {
        reply.append("       <").append(file).append(">\n");
        for (const std::string_view record : {kDefault, kEnquiry}) {
            for (std::size_t round = 0; round < rounds; ++round) {
                append_record(reply, record, round);
            }
        }
        reply.append("       </").append(file).append(">\n");
    }
    reply += "       <individual-public-data-file>\n";
    for (const std::string_view record : {kDirectorship, kCourtAction}) {
        for (std::size_t round = 0; round < rounds; ++round) {
            append_record(reply, record, round);
        }
    }
    reply += "       </individual-public-data-file>\n";
    reply += kTail;
    return reply;
}

}  // namespace zr::bench
