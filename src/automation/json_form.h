// The records of the public interface as JSON: properties by their names.
//
// Text is a text, a count a number, money a number with four decimals, a Boolean true or false, a
// date a text "yyyy-mm-dd" or, with a time of day, "yyyy-mm-ddThh:nn:ss"; null is null. Money is
// also read from a text that holds a number.
#pragma once

#include <vector>

#include "automation/json.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::automation {

/// Writes the members of an object into the request's properties, in their order; names are taken
/// in any letter case. "Options" holds the product options by id, each an object of "Checked",
/// "Value" and "Tag". Throws JsonError for an unknown or read-only property and for a value of
/// another type, and leaves the properties before it written.
void read_request(const JsonValue& json, Request& request);

/// Writes the members of an object into the settings of a service. Throws JsonError as read_request
/// does.
void read_settings(const JsonValue& json, Service& service);

/// A JSON value as the value of a property of this type. Throws JsonError, its reason starting with
/// `name`, for a value of another type. A text is a view into `json`.
Value to_value(ValueType type, const JsonValue& json, std::string_view name);

/// What of a response is written.
struct ResponseFields {
    std::vector<const Property<Response>*> properties;
    bool elements = false;    ///< ResponseElements
    bool selections = false;  ///< CompanySelections

    static ResponseFields all();
};

/// The properties of the response by name, then ResponseElements and CompanySelections as arrays.
void write_response(JsonWriter& json, const Response& response,
                    const ResponseFields& fields = ResponseFields::all());

/// The services of the bureau with their products, options and code tables, in registry and table
/// order; enumerations as numbers.
void write_catalogue(JsonWriter& json, const ZRCreditBureau& bureau);

}  // namespace zr::automation
