// The record of one enquiry: what the host asks, about whom, and with which options.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/secret.h"
#include "records/property.h"
#include "records/response.h"
#include "values/text.h"

namespace zr {

class ZRCreditBureau;

/// Everything that the host supplies for one enquiry. Texts start empty, amounts and counts at 0,
/// dates null but DefaultOccurredDate, which starts as today. `Dirty` tells whether anything
/// changed since the last successful enquiry.
class Request {
  public:
    Request();
    ~Request();  // wipes RequestXML, in which there are passwords
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    // Name() reads and Name(value) writes each property of the list. A count stays at the ends of
    // its range; a date that is none is stored as null.
#define ZR_REQUEST_READ_Text(Name) \
    const std::string& Name() const { return Name##_; }
#define ZR_REQUEST_READ_Gender(Name) ZR_REQUEST_READ_Text(Name)
#define ZR_REQUEST_READ_Count(Name) \
    std::int16_t Name() const { return Name##_; }
#define ZR_REQUEST_READ_Money(Name) \
    Currency Name() const { return Name##_; }
#define ZR_REQUEST_READ_Date(Name) \
    const DateTime& Name() const { return Name##_; }
#define ZR_REQUEST_READ_DateOfBirth(Name) \
    const DateOrNull& Name() const { return Name##_; }
#define ZR_REQUEST_READ_DateAsGiven(Name) ZR_REQUEST_READ_DateOfBirth(Name)

#define ZR_REQUEST_WRITE_Text(Name) \
    void Name(std::string_view value) { assign(Name##_, value); }
#define ZR_REQUEST_WRITE_Count(Name) \
    void Name(std::int64_t value) { assign(Name##_, property_detail::to_count(value)); }
#define ZR_REQUEST_WRITE_Money(Name) \
    void Name(Currency value) { assign(Name##_, value); }
#define ZR_REQUEST_WRITE_Date(Name) \
    void Name(const DateTime& value) { assign(Name##_, value.is_date() ? value : DateTime()); }
    // The properties with rules of their own are written out below.
#define ZR_REQUEST_WRITE_Gender(Name)
#define ZR_REQUEST_WRITE_DateOfBirth(Name)
#define ZR_REQUEST_WRITE_DateAsGiven(Name)

#define ZR_PROPERTY(Kind, Name, meaning) ZR_REQUEST_READ_##Kind(Name) ZR_REQUEST_WRITE_##Kind(Name)
#include "records/request_properties.inc"
#undef ZR_PROPERTY

    /// "MALE" and "M" in any letter case become "Male", "FEMALE" and "F" "Female", all else
    /// "unknown".
    void Gender(std::string_view value);

    /// A date, or a text that reads as one, is stored as a date; anything else as null.
    void DateOfBirth(const DateOrNull& value);

    /// A date, or a text that reads as one, is stored as given; anything else as null. Writing null
    /// makes the request dirty even when it was null before.
    void DefaultNewDate(const DateOrNull& value);

    /// True when a tracked value changed since creation, Clear(true) or the last successful
    /// enquiry.
    bool Dirty() const { return dirty_; }

    /// The document that the service built for the last enquiry; "" before.
    const std::string& RequestXML() const { return request_xml_; }

    /// The result record. Reading it when none is attached attaches a new, empty one.
    std::shared_ptr<const zr::Response> Response();
    /// Attaches the given record, or none; does not touch Dirty.
    void Response(const std::shared_ptr<const zr::Response>& response);

    /// Whether the option is selected; false for an option never written. A write creates it.
    bool OptionChecked(std::string_view option_id) const;
    void OptionChecked(std::string_view option_id, bool checked);
    /// The option's value; "" for an option never written. A write creates it.
    std::string_view OptionValue(std::string_view option_id) const;
    void OptionValue(std::string_view option_id, std::string_view value);
    /// A free value of the host's. A write creates the option and never changes Dirty.
    std::string_view OptionTag(std::string_view option_id) const;
    void OptionTag(std::string_view option_id, std::string_view tag);

    /// Forgets every option; does not change Dirty.
    void OptionsClear();

    /// Prepares the request for another subject. With `clear_all` the service, product, reference,
    /// document, response and Dirty are reset too. The previous address and the details of a
    /// default to lodge keep their values in both modes.
    void Clear(bool clear_all = true);

    /// The facade that created the request.
    void Application(ZRCreditBureau* application) { application_ = application; }

  private:
    friend class RequestInternals;

    struct Option {
        bool checked = false;
        std::string tag;
        std::string value;
    };

    template <class T, class V>
    void assign(T& field, const V& value) {
        if (!(field == value)) {
            field = value;
            dirty_ = true;
        }
    }
    const Option* find_option(std::string_view option_id) const;
    /// The option and whether it had to be created.
    std::pair<Option&, bool> option(std::string_view option_id);

#define ZR_REQUEST_STORE_Text(Name) std::string Name##_;
#define ZR_REQUEST_STORE_Gender(Name) std::string Name##_;
#define ZR_REQUEST_STORE_Count(Name) std::int16_t Name##_ = 0;
#define ZR_REQUEST_STORE_Money(Name) Currency Name##_;
#define ZR_REQUEST_STORE_Date(Name) DateTime Name##_;
#define ZR_REQUEST_STORE_DateOfBirth(Name) DateOrNull Name##_;
#define ZR_REQUEST_STORE_DateAsGiven(Name) DateOrNull Name##_;
#define ZR_PROPERTY(Kind, Name, meaning) ZR_REQUEST_STORE_##Kind(Name)
#include "records/request_properties.inc"
#undef ZR_PROPERTY

    bool dirty_ = false;
    std::string request_xml_;
    std::shared_ptr<zr::Response> response_;
    std::unordered_map<std::string, Option, text::HashIgnoringCase, text::EqualIgnoringCase>
        options_;
    ZRCreditBureau* application_ = nullptr;
};

/// The component-internal side of a request, for services only.
class RequestInternals {
  public:
    static void Dirty(Request& request, bool dirty) { request.dirty_ = dirty; }
    static void RequestXML(Request& request, std::string xml) {
        wipe(request.request_xml_);
        request.request_xml_ = std::move(xml);
    }
    /// The attached response, created when there is none, for writing.
    static zr::Response& Response(Request& request);
};

/// Every property of a request by name, in the order of the public interface; those that hosts only
/// read (Dirty, RequestXML) come last.
std::span<const Property<Request>> request_properties();

}  // namespace zr
