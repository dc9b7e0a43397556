#include "core/IniDocument.h"
#include "reputation/EmpathyRates.h"

#include <gtest/gtest.h>

namespace {

// The one-pass reader must agree with the INI engine on every lookup.
TEST(EmpathyRatesTest, AgreesWithTheIniEngineOnAwkwardFiles) {
    const std::string longValue(300, '7');
    const std::vector<std::string> files = {
        "",
        "rep=1\r\n[A]\r\nrep=2\r\n",                              // a key before any section
        "[A]\r\nREP = 0.5 \r\nrep=0.6\r\n",                       // first key wins, blanks dropped
        "[a]\r\nother=1\r\n[A]\r\nrep=0.9\r\n",                   // first section of a name wins
        "  [ B ] trailing\r\n\trep\t=\t-0.1\r\n",                 // blanks around names
        "[C\r\nrep=3\n[D]]\nrep=x/20&\\y\r\n[E]\r\nrep=\r\n",     // no "]", lone LF, escape, empty
        "[F]\r\n[G]\r\nrep=" + longValue + "\r\n[H]\r\nrep=a\rb", // cut at 254, lone CR, no end
        "[\xC4gypten]\r\nrep=1\r\n[I]\r\nre p=2\r\nrep==3\r\n",   // Windows-1252 case pair
    };
    const std::vector<std::string> towards = {"A", "a", "B", "C",          "D",       "E", "F",
                                              "G", "H", "I", "\xE4gypten", "missing", ""};
    for (const std::string& bytes : files) {
        const IniDocument document(bytes);
        const reputation::EmpathyRates rates(bytes);
        for (const std::string& toward : towards)
            EXPECT_EQ(rates.Read(toward, "0.0"), document.Read(toward, "rep", "0.0"))
                << "file: " << bytes << "\ntoward: " << toward;
    }
}

TEST(EmpathyRatesTest, MissingFileHasNoRates) {
    const auto rates = reputation::EmpathyRates::Load("/nonexistent-folder\\reps_A.facts");
    EXPECT_EQ(rates.Read("B", "0.0"), "0.0");
}

} // namespace
