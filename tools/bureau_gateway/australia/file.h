// A bureau file on an individual, before it is written as a report.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bureau_gateway/australia/catalogue.h"
#include "bureau_gateway/dates.h"
#include "bureau_gateway/invention/file_key.h"

namespace zr::gateway::australia {

struct Address {
    std::string_view type = "residential-current";
    Date created{};
    std::string unit;
    std::string number;
    std::string property;
    std::string street;
    std::string street_type;  ///< a code
    std::string suburb;
    std::string state;
    std::string postcode;
};

struct Employment {
    Date created{};
    std::string employer;
    std::string occupation;
};

struct Individual {
    PersonName name;
    std::string gender;
    std::optional<Date> date_of_birth;
    std::string licence_number;
    std::vector<Address> addresses;
    std::vector<Employment> employments;
};

struct CrossReference {
    Date created{};
    std::string reference;
    PersonName name;
};

struct DefaultState {
    Date recorded{};
    int amount = 0;
    std::string_view reason;
    std::string_view provider;
};

struct Default {
    CodeRow account_type;
    std::string_view role;  ///< may be empty
    std::string client_reference;
    CodeRow status;  ///< both empty while it is outstanding
    std::optional<Date> status_date;
    DefaultState original;
    std::optional<DefaultState> current;
};

struct Note {
    Date recorded{};
    std::string_view text;
};

struct CreditProvider {
    Date provided{};
    std::string_view name;
    std::string client_reference;  ///< may be empty
};

struct PastEnquiry {
    Date date{};
    std::string_view type;
    std::string_view enquirer;
    std::string client_reference;
    CodeRow account_type;
    std::string_view role;  ///< may be empty
    int amount = 0;
};

/// A consumer or a commercial credit file.
struct CreditFile {
    std::vector<CrossReference> cross_references;
    std::vector<Default> defaults;
    std::vector<Note> notes;
    std::vector<CreditProvider> providers;
    std::vector<PastEnquiry> enquiries;  ///< newest first
    std::vector<std::string_view> messages;
};

struct Directorship {
    std::string_view type;  ///< current or previous
    std::string reference;
    std::string name;
    std::string_view organisation_type;  ///< a code
    std::string number;
    std::string_view status;
    std::string business_number;
    Date appointed{};
    std::optional<Date> ceased;
    std::optional<Date> last_known;
};

struct Disqualification {
    Date from{};
    Date until{};
};

struct Proprietorship {
    Date appointed{};
    std::string reference;
    std::string name;
    std::string business_number;
    std::string_view state;
    std::string number;
};

struct Bankruptcy {
    std::string_view type;
    Date declared{};
    std::string_view narrative;
    std::string_view state;
    int year = 0;
    std::string number;
    CodeRow discharge;  ///< type and text
    std::optional<Date> discharged;
    std::string co_borrower;  ///< may be empty
};

struct CourtAction {
    std::string_view type;
    Date date{};
    std::string_view creditor;
    std::string_view court;
    std::string plaint;
    int amount = 0;
    CodeRow status;  ///< both empty while nothing has happened
    std::optional<Date> status_date;
};

struct PublicFile {
    std::vector<Directorship> directorships;
    std::vector<Disqualification> disqualifications;
    std::vector<Proprietorship> proprietorships;
    std::vector<Bankruptcy> bankruptcies;
    std::vector<CourtAction> court_actions;
    std::vector<std::string_view> messages;
};

/// Everything that the bureau has on one individual.
struct BureauFile {
    std::string_view match_type;
    std::string reference;
    Individual individual;
    std::optional<CreditFile> consumer;
    std::optional<CreditFile> commercial;
    PublicFile public_data;
};

}  // namespace zr::gateway::australia
