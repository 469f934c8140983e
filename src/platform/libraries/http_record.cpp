#include "platform/libraries/http_record.h"

#include <new>
#include <string_view>
#include <utility>

namespace zr {
namespace {

std::chrono::microseconds time_of(CURL* easy, CURLINFO what) {
    curl_off_t microseconds = 0;
    (void)curl_easy_getinfo(easy, what, &microseconds);
    return std::chrono::microseconds(microseconds);
}

/// The first certificate's facts, each a line "Name:value".
void record_certificate(CURL* easy, HttpRecord& record) {
    curl_certinfo* chain = nullptr;
    if (curl_easy_getinfo(easy, CURLINFO_CERTINFO, &chain) != CURLE_OK || chain == nullptr ||
        chain->num_of_certs == 0) {
        return;
    }
    const std::pair<std::string_view, std::string*> facts[] = {{"Subject:", &record.subject},
                                                               {"Issuer:", &record.issuer},
                                                               {"Expire date:", &record.expires}};
    for (const curl_slist* line = chain->certinfo[0]; line != nullptr; line = line->next) {
        const std::string_view text = line->data;
        for (const auto& [name, target] : facts) {
            if (text.starts_with(name)) *target = text.substr(name.size());
        }
    }
}

}  // namespace

void record_exchange(CURL* easy, HttpRecord& record) noexcept {
    try {
        record.resolved = time_of(easy, CURLINFO_NAMELOOKUP_TIME_T);
        record.connected = time_of(easy, CURLINFO_CONNECT_TIME_T);
        record.secured = time_of(easy, CURLINFO_APPCONNECT_TIME_T);
        record.answered = time_of(easy, CURLINFO_STARTTRANSFER_TIME_T);
        record.ended = time_of(easy, CURLINFO_TOTAL_TIME_T);
        const char* peer = nullptr;
        long port = 0;
        (void)curl_easy_getinfo(easy, CURLINFO_PRIMARY_IP, &peer);
        (void)curl_easy_getinfo(easy, CURLINFO_PRIMARY_PORT, &port);
        if (peer != nullptr && *peer != '\0') record.peer = peer + (":" + std::to_string(port));
        curl_header* date = nullptr;
        if (curl_easy_header(easy, "Date", 0, CURLH_HEADER, -1, &date) == CURLHE_OK) {
            record.date = date->value;
        }
        record_certificate(easy, record);
    } catch (const std::bad_alloc&) {
        record.expires.clear();
    }
}

}  // namespace zr
