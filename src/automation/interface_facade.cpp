// The facade and the registry as hosts see them.
#include "automation/describe.h"

namespace zr::automation {
namespace {

using Text = std::string_view;

Class facade_class() {
    using B = ZRCreditBureau;
    Class described = make_class(
        "ZRCreditBureau", "the credit bureau of a country",
        {ZR_OPERATION(B, Initialise, "sets it up for \"AU\" or \"NZ\"", In<Text>{"Country"}),
         ZR_READ_ONLY(B, Country, "the country it was initialised for"),
         ZR_OPERATION(B, CreateRequest, "a new request"),
         ZR_OPERATION(B, ExecuteCreditEnquiry, "runs an enquiry", In<Request&>{"Request"}),
         ZR_OPERATION(B, ExecuteGetList, "searches for companies", In<Request&>{"Request"}),
         ZR_OPERATION(B, ExecuteVerifyConnection, "tests a service's connection",
                      In<Text>{"ServiceName"}),
         ZR_OPERATION(B, BuildResponse, "translates a stored reply", In<Request&>{"Request"},
                      In<DateTime>{"ResponseDate"}, In<std::string>{"ResponseXML"}),
         ZR_OPERATION(B, ErrorMessage, "the reason of the most recent failure"),
         ZR_READ_ONLY(B, Services, "the country's services"),
         ZR_READ_ONLY(B, ServiceProducts, "the products of a service; none for an unknown one",
                      In<Text>{"ServiceName"}),
         ZR_READ_WRITE(B, TestMode, "whether enquiries go to the bureau's test endpoint"),
         ZR_READ_WRITE(B, CurrencyFormat, "pattern of amounts in report lines"),
         ZR_READ_WRITE(B, CurrencyFormatSymbol, "pattern of summary amounts"),
         ZR_READ_WRITE(B, DateFormat, "pattern of dates"),
         ZR_READ_ONLY(B, Version, "the component's version"),
         ZR_OPERATION(B, Dispose, "releases the services")});
    described.creatable = true;
    return described;
}

Class services_class() {
    using S = Services;
    return make_class(
        "Services", "the services of the facade's country",
        {ZR_READ_ONLY(S, Application, "the facade"), ZR_READ_ONLY(S, Count, "number of services"),
         ZR_OPERATION(S, Exists, "whether a service has this name", In<Text>{"Index"}),
         item_row<S>(),
         ZR_READ_ONLY(S, List, "the names as a comma-separated list",
                      In<bool>{"IncludeObsolete"})});
}

}  // namespace

void describe_facade(std::vector<Class>& classes) {
    classes.push_back(facade_class());
    classes.push_back(services_class());
}

}  // namespace zr::automation
