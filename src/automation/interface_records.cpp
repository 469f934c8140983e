// The request, the response and its two collections as hosts see them.
#include "automation/describe.h"
#include "automation/fields.h"

namespace zr::automation {
namespace {

using Text = std::string_view;

Class request_class() {
    using R = Request;
    constexpr In<Text> kOption = {"OptionId", "the option's id in any letter case"};
    Class described = make_class(
        "Request", "what the host asks, about whom, and with which options",
        {ZR_READ_WRITE(R, Response, "the result; read when none is attached, a new one"),
         ZR_READ_WRITE(R, OptionChecked, "whether an option is selected", kOption),
         ZR_READ_WRITE(R, OptionValue, "an option's text", kOption),
         ZR_READ_WRITE(R, OptionTag, "a free value of the host's", kOption),
         ZR_OPERATION(R, OptionsClear, "forgets every option"),
         ZR_OPERATION(R, Clear, "prepares the request for another subject",
                      In<bool>{"ClearAll", "also what is asked, and the response", true, "True"}),
         ZR_WRITE_ONLY(R, Application, ZRCreditBureau*, "the facade that created the request")});
    add_listed_properties(described, request_properties());
    return described;
}

Class response_class() {
    using R = const Response;
    Class described =
        make_class("Response", "what the bureau replied",
                   {ZR_READ_ONLY(R, ResponseElements, "the report's lines"),
                    ZR_READ_ONLY(R, CompanySelections, "the candidates of a company search")});
    add_listed_properties(described, response_properties());
    return described;
}

template <class Collection>
Class collection_class(std::string_view name, std::string_view meaning) {
    return make_class(name, meaning,
                      {ZR_READ_ONLY(const Collection, Count, "number of items"),
                       item_row<Collection>(), new_enum_row()});
}

}  // namespace

void describe_records(std::vector<Class>& classes) {
    classes.push_back(request_class());
    classes.push_back(response_class());
    classes.push_back(
        collection_class<ResponseElements>("ResponseElements", "the lines of a report"));
    classes.push_back(
        class_with("ResponseElement", "one line of a report", response_element_properties()));
    classes.push_back(
        collection_class<CompanySelections>("CompanySelections", "a search's candidates"));
    classes.push_back(class_with("CompanySelection", "one candidate of a company search",
                                 company_selection_properties()));
}

}  // namespace zr::automation
