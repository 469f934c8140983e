// Street types of the New Zealand B2Bay reports.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "records/component.h"

namespace zr::b2bay {

/// The bureau's code and the street type that hosts show. Bypass, Extension, Retreat and Wynd have
/// codes that earlier rows have, too; a look-up by code finds the earlier one.
inline constexpr CodeRow kStreetTypes[] = {
    {"AC", "Access"},     {"AL", "Alley"},    {"AN", "Anchorage"}, {"AP", "Approach"},
    {"AR", "Arcade"},     {"AV", "Avenue"},   {"BK", "Bank"},      {"BY", "Bay"},
    {"BH", "Beach"},      {"BT", "Belt"},     {"BN", "Bend"},      {"BL", "Boulevard"},
    {"BR", "Briars"},     {"BG", "Bridge"},   {"BW", "Broadway"},  {"BY", "Bypass"},
    {"CW", "Carrowmore"}, {"CE", "Centre"},   {"CH", "Chase"},     {"CI", "Circle"},
    {"CX", "Circus"},     {"CL", "Close"},    {"CM", "Common"},    {"CN", "Corner"},
    {"CR", "Crescent"},   {"CS", "Crest"},    {"CT", "Court"},     {"CV", "Cove"},
    {"DA", "Dale"},       {"DL", "Dell"},     {"DO", "Domain"},    {"DN", "Downs"},
    {"DR", "Drive"},      {"EA", "East"},     {"ED", "End"},       {"ES", "Esplanade"},
    {"ET", "Estate"},     {"EX", "Exchange"}, {"ET", "Extension"}, {"FA", "Fairway"},
    {"FL", "Flat"},       {"GD", "Gardens"},  {"GT", "Gate"},      {"GL", "Glade"},
    {"GN", "Glen"},       {"GE", "Great"},    {"GG", "Green"},     {"GR", "Grove"},
    {"HT", "Heights"},    {"HW", "Highway"},  {"HL", "Hill"},      {"JN", "Junction"},
    {"KY", "Key"},        {"LN", "Lane"},     {"LI", "Line"},      {"LK", "Link"},
    {"LO", "Loop"},       {"MA", "Mall"},     {"MD", "Mead"},      {"MW", "Meadows"},
    {"ME", "Mews"},       {"ML", "Mile"},     {"MY", "Motorway"},  {"MN", "Mount"},
    {"PD", "Parade"},     {"PK", "Park"},     {"PS", "Pass"},      {"PA", "Passage"},
    {"PH", "Path"},       {"PL", "Place"},    {"PZ", "Plaza"},     {"PT", "Point"},
    {"PR", "Promenade"},  {"QT", "Quadrant"}, {"QU", "Quay"},      {"RA", "Range"},
    {"RE", "Reach"},      {"RV", "Reserve"},  {"RT", "Rest"},      {"RE", "Retreat"},
    {"RG", "Ridge"},      {"RS", "Rise"},     {"RD", "Road"},      {"RY", "Roadway"},
    {"RO", "Route"},      {"RW", "Row"},      {"SR", "Spur"},      {"SQ", "Square"},
    {"SN", "Station"},    {"SS", "Steps"},    {"ST", "Street"},    {"SP", "Strip"},
    {"SY", "Subway"},     {"TA", "Tailings"}, {"TC", "Terrace"},   {"TK", "Track"},
    {"TR", "Trail"},      {"TY", "Tramway"},  {"TN", "Tunnel"},    {"VL", "Vale"},
    {"VY", "Valley"},     {"VW", "View"},     {"VS", "Views"},     {"VE", "Village"},
    {"VA", "Vista"},      {"WK", "Walk"},     {"WW", "Walkway"},   {"WY", "Way"},
    {"WT", "West"},       {"WF", "Wharf"},    {"WY", "Wynd"},
};

/// Version 2 of the reports: without the four rows whose codes stand twice, and with Brae, which
/// takes the code of Briars.
inline constexpr auto kStreetTypesOfVersion2 = [] {
    constexpr std::string_view kLeftOut[] = {"Bypass", "Extension", "Retreat", "Wynd"};
    std::array<CodeRow, std::size(kStreetTypes) - std::size(kLeftOut) + 1> rows{};
    std::size_t next = 0;
    for (const CodeRow& row : kStreetTypes) {
        if (std::find(std::begin(kLeftOut), std::end(kLeftOut), row.description) !=
            std::end(kLeftOut)) {
            continue;
        }
        if (row.description == "Briars") {
            rows[next++] = {"BR", "Brae"};
            rows[next++] = {"BS", "Briars"};
        } else {
            rows[next++] = row;
        }
    }
    return rows;
}();

}  // namespace zr::b2bay
