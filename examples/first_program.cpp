// Translates a stored reply of VedaXML Australia and prints its report line by line; with a style
// sheet named too, prints the page that the sheet makes of it.
//     first_program reply.xml [sheet.xsl]
#include <zrcreditbureau/zrcreditbureau.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

int main(int argc, char* argv[]) {
    std::ifstream file(argc > 1 ? argv[1] : "");
    if (!file) {
        std::cerr << "usage: first_program reply.xml [sheet.xsl]\n";
        return 2;
    }
    const std::string reply((std::istreambuf_iterator<char>(file)), {});

    zr::ZRCreditBureau bureau;
    if (!bureau.Initialise("AU")) {
        std::cerr << bureau.ErrorMessage() << '\n';
        return 1;
    }
    if (argc > 2) {
        bureau.Service("VedaXMLAU")->XSLTFileName(argv[2]);
    }

    const auto request = bureau.CreateRequest();
    request->ServiceName("VedaXMLAU");
    request->ProductId("consumer-enquiry");
    if (!bureau.BuildResponse(*request, zr::DateTime::ymd(2012, 6, 15), reply)) {
        std::cerr << bureau.ErrorMessage() << '\n';
        return 1;
    }

    const auto response = request->Response();
    if (argc > 2) {
        std::cout << response->ResponseHTML();
        return 0;
    }
    for (const zr::ResponseElement& line : response->ResponseElements()) {
        std::cout << line.ResponseGroup() << " | " << line.ResponseSubGroup() << " | "
                  << line.ResponseName() << ": " << line.ResponseDescription() << '\n';
    }
    return 0;
}
