#include "cli/Command.h"
#include "cli/ManPage.h"
#include "core/WindowOptions.h"

#include <array>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace {

TEST(ManPage, TextLinesCannotBeReadAsRequestsOrEscapes) {
    EXPECT_EQ(cli::RoffText(".ini files"), "\\&.ini files");
    EXPECT_EQ(cli::RoffText("'quoted'"), "\\&'quoted'");
    EXPECT_EQ(cli::RoffText("a.b 'c'"), "a.b 'c'");
    EXPECT_EQ(cli::RoffText("--into C:\\mods"), "\\-\\-into C:\\emods");
}

// Each page lists every entry of its table as a tagged paragraph, has its sections in order,
// and uses no request beyond the few it means (a stray one would be a text line read as markup).
TEST(ManPage, EachPageListsItsTableInItsSections) {
    std::vector<std::array<std::string_view, 3>> commands, options; // name, argument, summary
    for (const cli::Command& command : cli::Commands())
        commands.push_back({command.name, command.arguments, command.summary});
    for (const windowOptions::Option& option : windowOptions::Options)
        options.push_back({option.name, option.argument, option.summary});
    const struct {
        void (*write)(std::ostream&);
        std::string_view title;
        const std::vector<std::array<std::string_view, 3>>& entries;
        std::vector<std::string> sections;
    } pages[] = {
        {cli::WriteManPage,
         ".TH ORRINDEL\\-CLI 1 ",
         commands,
         {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "COMMANDS", "EXIT STATUS", "FILES",
          "ENVIRONMENT"}},
        {cli::WriteWindowManPage,
         ".TH ORRINDEL 1 ",
         options,
         {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "FILES", "ENVIRONMENT", "SEE ALSO"}},
    };
    for (const auto& page : pages) {
        SCOPED_TRACE(page.title);
        std::ostringstream out;
        page.write(out);
        const std::string text = out.str();
        EXPECT_EQ(text.rfind(page.title, 0), 0u);
        for (const auto& [name, argument, summary] : page.entries) {
            std::string paragraph = ".TP\n\\fB" + cli::RoffText(name) + "\\fR";
            if (!argument.empty())
                paragraph += " \\fI" + cli::RoffText(argument) + "\\fR";
            paragraph += "\n" + cli::RoffText(summary) + "\n";
            EXPECT_NE(text.find(paragraph), std::string::npos) << name;
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
        EXPECT_EQ(sections, page.sections);
    }
}

} // namespace
