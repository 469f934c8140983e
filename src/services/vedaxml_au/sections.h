// The sections of an Australian report that are the same in every service that reads one.
#pragma once

#include <cstdint>

#include "services/vedaxml_au/lines.h"

namespace zr::australia {

/// The nodes that sections start from, in the order in which the writer takes them.
enum Source : std::uint8_t {
    kMatch = 0,   ///< the matched file: primary or possible match
    kReport = 1,  ///< the enquiry report
};

namespace sections {

using namespace lines;  // the lines of the sections below

// Group, word, sub-group, numbering, source, records, lines.
inline constexpr Section kConsumerCrossReferences{
    Group::kPrefixed,
    "Consumer Cross References",
    "Cross Reference",
    Numbering::kPosition,
    kMatch,
    "individual-consumer-credit-file/individual-cross-reference",
    kCrossReferenceLines};
inline constexpr Section kConsumerNotes{
    Group::kPrefixed, "Consumer Notes",
    "Note",           Numbering::kPosition,
    kMatch,           "individual-consumer-credit-file/file-note",
    kNoteLines};
inline constexpr Section kConsumerCurrentCreditProviders{
    Group::kPrefixed,
    "Consumer Current Credit Providers",
    "Current Credit Provider",
    Numbering::kPosition,
    kMatch,
    "individual-consumer-credit-file/current-credit-provider",
    kCurrentProviderLines};
inline constexpr Section kCommercialCrossReferences{
    Group::kPrefixed,
    "Commercial Cross References",
    "Cross Reference",
    Numbering::kPosition,
    kMatch,
    "individual-commercial-credit-file/individual-cross-reference",
    kCrossReferenceLines};
inline constexpr Section kCommercialNotes{
    Group::kPrefixed, "Commercial Notes",
    "Note",           Numbering::kPosition,
    kMatch,           "individual-commercial-credit-file/file-note",
    kNoteLines};
inline constexpr Section kCommercialCurrentCreditProviders{
    Group::kPrefixed,
    "Commercial Current Credit Providers",
    "Current Credit Provider",
    Numbering::kPosition,
    kMatch,
    "individual-commercial-credit-file/current-credit-provider",
    kCurrentProviderLines};
inline constexpr Section kCommercialEnquiries{Group::kPrefixed,
                                              "Commercial Enquiries",
                                              "Enquiry",
                                              Numbering::kPosition,
                                              kMatch,
                                              "individual-commercial-credit-file/credit-enquiry",
                                              kCommercialEnquiryLines};
inline constexpr Section kDirectorships{
    Group::kPrefixed,     "Directorships", "Directorship",
    Numbering::kPosition, kMatch,          "individual-public-data-file/directorship",
    kDirectorshipLines};
inline constexpr Section kDisqualifiedDirectorships{
    Group::kPrefixed,
    "Disqualified Directorships",
    "Disqualified Directorship",
    Numbering::kPosition,
    kMatch,
    "individual-public-data-file/disqualified-directorship",
    kDisqualifiedDirectorshipLines};
inline constexpr Section kProprietorships{Group::kPrefixed,
                                          "Proprietorships",
                                          "Proprietorship",
                                          Numbering::kPosition,
                                          kMatch,
                                          "individual-public-data-file/proprietorship",
                                          kProprietorshipLines};
inline constexpr Section kBankruptcies{Group::kPrefixed, "Bankruptcies",
                                       "Bankruptcy",     Numbering::kPosition,
                                       kMatch,           "individual-public-data-file/bankruptcy",
                                       kBankruptcyLines};
inline constexpr Section kCourtActions{Group::kPrefixed, "Court Actions",
                                       "Court Action",   Numbering::kPosition,
                                       kMatch,           "individual-public-data-file/court-action",
                                       kCourtActionLines};
inline constexpr Section kPublicFileDataMessages{
    Group::kPrefixed, "Public File Data Messages",
    "File Message",   Numbering::kPosition,
    kMatch,           "individual-public-data-file/file-message",
    kMessageLines};

}  // namespace sections
}  // namespace zr::australia
