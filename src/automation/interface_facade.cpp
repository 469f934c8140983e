// The facade and the registry as hosts see them.
#include "automation/describe.h"

namespace zr::automation {
namespace {

using Text = std::string_view;

/// The products as the service has them that a host of them keeps.
constexpr auto products_of = [](const ZRCreditBureau& bureau, Text service_name) {
    const auto service = bureau.Service(service_name);
    const Products* products = bureau.ServiceProducts(service_name);
    return products == nullptr ? std::nullopt
                               : std::optional(std::shared_ptr<const Products>(service, products));
};

Class facade_class() {
    using B = ZRCreditBureau;
    constexpr In<Request&> kRequest = {"Request", "what is asked; its response is attached to it"};
    constexpr In<Text> kService = {"ServiceName", "a service's name in any letter case"};
    Class described = make_class(
        "ZRCreditBureau", "the credit bureau of a country",
        {ZR_OPERATION(B, Initialise, "sets it up for \"AU\" or \"NZ\"",
                      In<Text>{"Country", "the country's two letters"}),
         ZR_READ_ONLY(B, Country, "the country it was initialised for"),
         ZR_OPERATION(B, CreateRequest, "a new request"),
         ZR_OPERATION(B, ExecuteCreditEnquiry, "runs an enquiry", kRequest),
         ZR_OPERATION(B, ExecuteGetList, "searches for companies", kRequest),
         ZR_OPERATION(B, ExecuteVerifyConnection, "tests a service's connection", kService),
         ZR_OPERATION(B, BuildResponse, "translates a stored reply", kRequest,
                      In<DateTime>{"ResponseDate", "from which the statistics count back"},
                      In<Text>{"ResponseXML", "the reply as text"}),
         ZR_OPERATION(B, ErrorMessage, "the reason of the most recent failure"),
         ZR_READ_ONLY(B, Services, "the country's services"),
         describe<B>(MemberKind::kReadOnly, "ServiceProducts", products_of,
                     "the products of a service; none for an unknown one", kService),
         ZR_READ_WRITE(B, TestMode, "whether enquiries go to the bureau's test endpoint"),
         ZR_READ_WRITE(B, CurrencyFormat, "pattern of amounts in report lines"),
         ZR_READ_WRITE(B, CurrencyFormatSymbol, "pattern of summary amounts"),
         ZR_READ_WRITE(B, DateFormat, "pattern of dates"),
         ZR_READ_ONLY(B, Version, "the component's version"),
         ZR_OPERATION(B, Dispose, "releases the services"),
         describe<B>(
             MemberKind::kReadOnly, "ErrorKind",
             [](const B& bureau) { return failure_kind_name(bureau.ErrorKind()); },
             "the kind of the most recent failure, for programs"),
         ZR_READ_ONLY(B, ErrorCode, "which one of its kind it was")});
    let_create<B>(described);
    return described;
}

Class services_class() {
    using S = Services;
    return make_class(
        "Services", "the services of the facade's country",
        {ZR_READ_ONLY(S, Application, "the facade"), ZR_READ_ONLY(S, Count, "number of services"),
         ZR_OPERATION(S, Exists, "whether a service has this name",
                      In<Text>{"Index", "a service's name in any letter case"}),
         item_row<S>(),
         ZR_READ_ONLY(
             S, List, "the names as a comma-separated list",
             In<bool>{"IncludeObsolete", "whether those refused by enquiries are named"})});
}

}  // namespace

void describe_facade(std::vector<Class>& classes) {
    classes.push_back(facade_class());
    classes.push_back(services_class());
}

}  // namespace zr::automation
