#include "cli/Command.h"
#include "cli/ManPage.h"
#include "core/WindowOptions.h"

#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace {

struct Entry {
    std::string_view name;
    std::string_view argument;
    std::string_view summary;
};

struct Page {
    const char* program;
    void (*write)(std::ostream&);
    std::string_view title;     // the .TH line starts with it
    std::vector<Entry> entries; // each must stand in the page as a tagged paragraph
    std::vector<std::string_view> sections;
};

std::vector<Page> Pages() {
    std::vector<Entry> commands;
    for (const cli::Command& command : cli::Commands())
        commands.push_back({command.name, command.arguments, command.summary});
    std::vector<Entry> options;
    for (const windowOptions::Option& option : windowOptions::Options)
        options.push_back({option.name, option.argument, option.summary});
    return {
        {"orrindel-cli",
         cli::WriteManPage,
         ".TH ORRINDEL\\-CLI 1 ",
         commands,
         {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "COMMANDS", "EXIT STATUS", "FILES",
          "ENVIRONMENT"}},
        {"orrindel",
         cli::WriteWindowManPage,
         ".TH ORRINDEL 1 ",
         options,
         {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "FILES", "ENVIRONMENT", "SEE ALSO"}},
    };
}

} // namespace

TEST(ManPage, TextLinesCannotBeReadAsRequestsOrEscapes) {
    EXPECT_EQ(cli::RoffText(".ini files"), "\\&.ini files");
    EXPECT_EQ(cli::RoffText("'quoted'"), "\\&'quoted'");
    EXPECT_EQ(cli::RoffText("a.b 'c'"), "a.b 'c'");
    EXPECT_EQ(cli::RoffText("--into C:\\mods"), "\\-\\-into C:\\emods");
}

// Each page lists every entry of its table, has its sections in order, and uses no request
// beyond the few it means (a stray one would be a text line read as markup).
TEST(ManPage, EachPageListsItsTableInItsSections) {
    for (const Page& page : Pages()) {
        SCOPED_TRACE(page.program);
        std::ostringstream out;
        page.write(out);
        const std::string text = out.str();
        EXPECT_EQ(text.rfind(page.title, 0), 0u);
        for (const Entry& entry : page.entries) {
            std::string paragraph = ".TP\n\\fB" + cli::RoffText(entry.name) + "\\fR";
            if (!entry.argument.empty())
                paragraph += " \\fI" + cli::RoffText(entry.argument) + "\\fR";
            paragraph += "\n" + cli::RoffText(entry.summary) + "\n";
            EXPECT_NE(text.find(paragraph), std::string::npos) << entry.name;
        }
        std::vector<std::string> sections;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(".SH ")) {
                sections.push_back(line.substr(4));
            } else if (line.starts_with('.')) {
                EXPECT_TRUE(line.starts_with(".TH ") || line == ".TP" || line == ".PP" ||
                            line == ".br" || line.starts_with(".B ") || line.starts_with(".BR "))
                    << line;
            }
        }
        EXPECT_EQ(sections, std::vector<std::string>(page.sections.begin(), page.sections.end()));
    }
}
