#include "cli/Command.h"
#include "cli/ManPage.h"

#include <gtest/gtest.h>
#include <sstream>

TEST(ManPage, TextLinesCannotBeReadAsRequestsOrEscapes) {
    EXPECT_EQ(cli::RoffText(".ini files"), "\\&.ini files");
    EXPECT_EQ(cli::RoffText("'quoted'"), "\\&'quoted'");
    EXPECT_EQ(cli::RoffText("a.b 'c'"), "a.b 'c'");
    EXPECT_EQ(cli::RoffText("--into C:\\mods"), "\\-\\-into C:\\emods");
}

TEST(ManPage, ListsEveryCommandOfTheTableWithItsArguments) {
    std::ostringstream page;
    cli::WriteManPage(page);
    const std::string text = page.str();
    EXPECT_EQ(text.rfind(".TH ORRINDEL\\-CLI 1 ", 0), 0u);
    for (const cli::Command& command : cli::Commands()) {
        std::string entry = ".TP\n\\fB" + cli::RoffText(command.name) + "\\fR";
        if (!command.arguments.empty())
            entry += " \\fI" + cli::RoffText(command.arguments) + "\\fR";
        entry += "\n" + cli::RoffText(command.summary) + "\n";
        EXPECT_NE(text.find(entry), std::string::npos) << command.name;
    }
    // Every line that starts with a dot is a request the page means.
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('.')) {
            EXPECT_TRUE(line.starts_with(".TH ") || line.starts_with(".SH ") || line == ".TP" ||
                        line == ".br" || line.starts_with(".B "))
                << line;
        }
    }
}
