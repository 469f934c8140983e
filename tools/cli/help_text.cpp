#include "cli/help_text.h"

#include <algorithm>

#include "cli/option_table.h"

namespace zr::cli {
namespace {

constexpr std::size_t kMeanings = 28;  ///< the column in which they begin
constexpr std::size_t kWidth = 96;

/// Appends the words of a text, lines broken before the width and indented.
void append_wrapped(std::string& page, std::string_view text, std::size_t indent) {
    std::size_t column = page.size() - (page.rfind('\n') + 1);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        if (column + 1 + end > kWidth) {
            page.append("\n").append(indent, ' ');
            column = indent;
        } else if (column > indent) {
            page += ' ';
            ++column;
        }
        page.append(text.substr(0, end));
        column += end;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    page += '\n';
}

void append_row(std::string& page, const std::string& names, std::string_view meaning) {
    page += "  " + names;
    if (names.size() + 3 >= kMeanings) {
        page += '\n';
        page.append(kMeanings, ' ');
    } else {
        page.append(kMeanings - 2 - names.size(), ' ');
    }
    append_wrapped(page, meaning, kMeanings);
}

std::string program_help() {
    std::string page =
        "Credit-bureau enquiries from the command line.\n\n"
        "Usage: zrcreditbureau COMMAND [options]\n"
        "       zrcreditbureau help COMMAND\n\nCommands:\n";
    std::string examples = "\nExamples:\n";
    for (const Command& command : commands()) {
        append_row(page, std::string(command.name), command.summary);
        examples.append("  ").append(command.example).append("\n");
    }
    append_row(page += '\n', "--version", "The program's version");
    page += examples + '\n';
    append_wrapped(page, "Exit status: " + std::string(kExitStatuses), 0);
    return page;
}

}  // namespace

std::string help_text(const Command* command) {
    if (command == nullptr) {
        return program_help();
    }
    std::string usage = "Usage: zrcreditbureau " + std::string(command->name);
    std::string rows;
    std::string_view section;
    for (const Option* const option : options_of(*command)) {
        if (option->section != section) {
            section = option->section;
            rows.append("\n").append(section).append(":\n");
        }
        std::string names = option->names;
        if (option->is_positional()) {
            usage += " " + names;
        } else if (!option->argument.empty()) {
            names += " " + option->argument;
        }
        append_row(rows, names, option->description());
    }
    std::string page = std::string(command->summary) + ".\n\n" + usage + " [options]\n";
    page.append("Example:\n  ").append(command->example).append("\n").append(rows);
    for (const Note& note : notes()) {
        if ((note.commands & command->id) != 0) {
            append_wrapped(page += '\n', note.text, 0);
        }
    }
    return page;
}

std::span<const Note> notes() {
    static constexpr Note kNotes[] = {
        {kCompose | kEnquire | kList | kVerify | kTranslate | kCheck | kDoctor,
         "Other users of this machine can see a command line: give passwords in a --settings file "
         "or in the environment. An option wins over the environment, which wins over the file."},
        {kTranslate,
         "Many replies (several files, a folder, sqlite, or any option of that section) give one "
         "JSON result a line in the order of the input, headed by \"File\" where replies are "
         "files. A reply that fails is told on standard error and the run goes on. Exit status: 0 "
         "when all were translated, 1 when any failed, 130 or 143 when interrupted."},
        {kDiff,
         "Results of files are matched by the file, others by their line; lines by group, "
         "sub-group and name. Exit status: 0 when nothing changed, 1 when anything did, 2 for "
         "trouble."},
        {kCheck,
         "Tells of all replies together which elements and attributes no line, field or count "
         "shows, what is read as an amount, date or code and is none, which figures disagree, and "
         "which replies are not in the encoding that they declare: how many replies have it, how "
         "often, and where first. Keep the JSON of a check and give it to the next with --known: "
         "what is then told is new. Exit status: 0 when all were checked, 1 when any could not be "
         "translated, or, with --strict, when there is anything to tell."},
        {kCheck | kTranslate,
         "The counts of a New Zealand company are of records directly below enquiry-report, its "
         "lines of those in its own part: where the two differ, reports tell of adverse records "
         "outside the statistics, and a check of figures that disagree."},
    };
    return kNotes;
}

}  // namespace zr::cli
