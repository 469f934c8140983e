// Makes up a bureau file from its key: always the same file for the same key, day and products.
#pragma once

#include "bureau_gateway/australia/applicant.h"
#include "bureau_gateway/australia/catalogue.h"
#include "bureau_gateway/australia/file.h"
#include "bureau_gateway/random.h"

namespace zr::gateway::australia {

/// What all sections of a file are made from.
struct Blueprint {
    const FileKey& key;
    const EnquiryRow& enquiry;
    Date today;

    Random random(std::string_view purpose) const { return {key.seed, purpose}; }
    Date days_ago(Random& random, int least, int most) const {
        return days_before(today, random.between(least, most));
    }
};

/// The person of a file that only its reference is known of.
Individual invent_individual(const Blueprint& plan);

/// Adds what the bureau knows about the person beyond what it was told.
void add_history(const Blueprint& plan, Individual& individual);

CreditFile build_consumer_file(const Blueprint& plan, const Individual& individual);
CreditFile build_commercial_file(const Blueprint& plan, const Individual& individual);
PublicFile build_public_file(const Blueprint& plan);

/// One more enquiry, older than `age` days, to make a file as long as wanted.
PastEnquiry build_enquiry(const Blueprint& plan, Random& random, bool commercial, int age);

/// The whole file of the individual; invents the individual when there is none.
BureauFile build_file(const Blueprint& plan, const Individual* individual);

/// The file of somebody else who might be meant.
BureauFile build_possible_match(const Blueprint& plan, const Individual& individual);

}  // namespace zr::gateway::australia
