// What is probably a mistake in an enquiry and is told before anything is sent: the component
// itself sends what it is given.
#pragma once

#include "cli/job.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::cli {

/// Checks the request that a job makes against the catalogue, and the settings against what they
/// need; a code that stands where a description is meant becomes it. Says nothing of what the
/// facade refuses itself. A company search needs no product. Throws automation::JsonError with the
/// valid names.
void guard_request(const ZRCreditBureau& bureau, const Job& job, bool searches, Request& request);

/// How the user gives a setting: "UserId (--user-id, ZR_USER_ID)".
std::string told(std::string_view setting);

/// The text of a setting of a service; "" where it has none.
std::string setting_text(const Service& service, std::string_view name);

}  // namespace zr::cli
