#include "cli/completion.h"

#include <algorithm>

#include "cli/option_table.h"
#include "values/text.h"

namespace zr::cli {
namespace {

std::string joined(const std::vector<std::string>& words, std::string_view separator) {
    std::string text;
    for (const std::string& word : words) {
        text.append(text.empty() ? "" : separator).append(word);
    }
    return text;
}

std::vector<std::string> command_names(CommandSet set) {
    std::vector<std::string> names;
    for (const Command& command : commands()) {
        if ((command.id & set) != 0) {
            names.emplace_back(command.name);
        }
    }
    return names;
}

std::string values_of(const Option& option) { return text::replace_all(option.values, "|", " "); }

/// The first clause of a meaning, without what the descriptions of zsh take for their own.
std::string brief(std::string_view meaning) {
    std::string text(meaning.substr(0, meaning.find("; ")));
    std::ranges::replace_if(
        text, [](char letter) { return letter == '[' || letter == ']' || letter == ':'; }, ' ');
    return text;
}

/// In single quotes, as all three shells read it.
std::string quoted(std::string_view text) {
    return "'" + text::replace_all(text, "'", "'\\''") + "'";
}

constexpr CommandSet kEvery = CommandSet(~0U);

std::string bash_text() {
    std::string cases;
    for (const Option& option : options()) {
        if (option.argument.empty() || option.is_positional()) {
            continue;
        }
        std::string pattern;
        for (const std::string& command : command_names(option.commands)) {
            for (const std::string& name : words_of(option.names, ',')) {
                pattern.append(pattern.empty() ? "" : "|").append(command);
                pattern.append(",").append(name);
            }
        }
        cases += "        " + pattern + ") " +
                 (option.argument == "FILE" ? "files=1" : "words='" + values_of(option) + "'") +
                 " ;;\n";
    }
    for (const Command& command : commands()) {
        std::vector<std::string> words = {"--help"};
        bool files = false;
        for (const Option* const option : options_of(command)) {
            files = files || option->names == "FILE";
            const std::vector<std::string> more = option->is_positional()
                                                      ? words_of(option->values, '|')
                                                      : words_of(option->names, ',');
            words.insert(words.end(), more.begin(), more.end());
        }
        cases.append("        ").append(command.name).append(",*) ");
        cases += (files ? "files=1 " : "") + ("words='" + joined(words, " ") + "' ;;\n");
    }
    return R"(_zrcreditbureau() {
    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} words= files=
    [ "$current" = = ] && current= || { [ "$before" = = ] && before=${COMP_WORDS[COMP_CWORD-2]}; }
    case ${COMP_WORDS[1]},$before in
)" + std::string("        *,zrcreditbureau|help,*) words='help ") +
           joined(command_names(kEvery), " ") + "' ;;\n" + cases + R"(    esac
    COMPREPLY=($(compgen -W "$words" -- "$current"))
    if [ -n "$files" ] && [ ${#COMPREPLY[@]} -eq 0 ]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
}
complete -F _zrcreditbureau zrcreditbureau
)";
}

std::string zsh_text() {
    std::string summaries;
    std::string cases;
    for (const Command& command : commands()) {
        const std::string name(command.name);
        summaries += " " + quoted(name + ":" + brief(command.summary));
        cases += "        " + name + ") _arguments '--help[Help]'";
        for (const Option* const option : options_of(command)) {
            const std::string value =
                ":" + option->argument +
                (option->argument == "FILE" ? ":_files" : ":(" + values_of(*option) + ")");
            const std::string meaning = "[" + brief(option->meaning) + "]";
            for (std::string word : words_of(option->names, ',')) {
                word = option->is_positional()
                           ? "*"
                           : word.append(option->argument.empty() ? "" : "=").append(meaning);
                word.append(option->argument.empty() ? "" : value);
                cases.append(" \\\n            ").append(quoted(word));
            }
        }
        cases += " ;;\n";
    }
    return R"(#compdef zrcreditbureau
_zrcreditbureau() {
    local -a commands=()" +
           summaries +
           R"( )
    if ((CURRENT == 2)); then
        _describe command commands
        return
    fi
    shift words
    ((CURRENT--))
    case $words[1] in
)" + cases +
           R"(    esac
}
_zrcreditbureau "$@"
)";
}

std::string fish_text() {
    std::string text = "complete -c zrcreditbureau -f\n";
    for (const Command& command : commands()) {
        text.append("complete -c zrcreditbureau -n __fish_use_subcommand -a ").append(command.name);
        text += " -d " + quoted(brief(command.summary)) + "\n";
    }
    for (const Option& option : options()) {
        text += "complete -c zrcreditbureau -n '__fish_seen_subcommand_from " +
                joined(command_names(option.commands), " ") + "'";
        if (!option.is_positional()) {
            for (const std::string& name : words_of(option.names, ',')) {
                text += " -l " + name.substr(2);
            }
        }
        text += option.argument == "FILE" ? " -r -F" : option.argument.empty() ? "" : " -x";
        if (!option.values.empty()) {
            text += " -a '" + values_of(option) + "'";
        }
        text += " -d " + quoted(brief(option.meaning)) + "\n";
    }
    return text;
}

}  // namespace

std::string completion_text(std::string_view shell) {
    return shell == "bash" ? bash_text() : shell == "zsh" ? zsh_text() : fish_text();
}

}  // namespace zr::cli
