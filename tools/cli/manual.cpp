#include "cli/manual.h"

#include "cli/help_text.h"
#include "cli/option_table.h"
#include "values/text.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::cli {
namespace {

/// The text so that nothing in it is read as the language of man pages.
std::string plain(std::string_view text) {
    std::string escaped = text::replace_all(text, "\\", "\\e");
    escaped = text::replace_all(escaped, "-", "\\-");
    escaped = text::replace_all(escaped, "\n", "\n.br\n");
    return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

std::string heading(std::string_view name) { return ".SH " + text::upper(name) + "\n"; }

std::string entry(std::string_view term, std::string_view meaning) {
    return ".TP\n.B " + plain(term) + "\n" + plain(meaning) + "\n";
}

/// The commands of a set, as "compose, enquire"; "all" for every one with options.
std::string names_of(CommandSet set) {
    std::string names;
    for (const Command& command : commands()) {
        if ((command.id & set) != 0) {
            names.append(names.empty() ? "" : ", ").append(command.name);
        }
    }
    return names;
}

}  // namespace

std::string manual_text() {
    std::string page = ".TH ZRCREDITBUREAU 1 \"\" \"zrcreditbureau " + ZRCreditBureau::Version() +
                       "\" \"User Commands\"\n" + heading("name") +
                       "zrcreditbureau \\- credit\\-bureau enquiries from the command line\n" +
                       heading("synopsis") + ".B zrcreditbureau\n.I command\n[\n.I options\n]\n" +
                       heading("commands");
    std::string examples = heading("examples") + ".nf\n";
    for (const Command& command : commands()) {
        page += entry(command.name, std::string(command.summary) + ".");
        examples += text::replace_all(plain(command.example), "\n.br\n", "\n") + "\n";
    }
    page += heading("options") +
            "Each is followed by the commands that have it. A variable of the environment that "
            "gives it too stands in brackets.\n";
    std::string_view section;
    for (const Option& option : options()) {
        if (option.section != section) {
            section = option.section;
            page.append(".SS ").append(section).append("\n");
        }
        const bool named = !option.is_positional() && !option.argument.empty();
        page +=
            entry(text::replace_all(option.names, ",", ", ") + (named ? " " + option.argument : ""),
                  option.description() + ". (" + names_of(option.commands) + ")");
    }
    for (const Note& note : notes()) {
        page += ".PP\n" + plain(note.text) + "\n";
    }
    return page + examples + ".fi\n" + heading("exit status") + plain(kExitStatuses) + "\n" +
           heading("files") +
           entry("~/.config/zrcreditbureau/settings.json",
                 "Settings by service, where neither --settings nor ZR_SETTINGS names a file.");
}

}  // namespace zr::cli
