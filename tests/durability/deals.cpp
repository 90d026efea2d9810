#include <iostream>
#include <string>

#include "app/form_main.h"
#include "tests/support/null_host.h"

/// The program without windows, on the real files of the directory named: starts, then deals a
/// game for each line of standard input and answers with the number of games dealt.
int main(int /*count*/, char** arguments) {
    using namespace solvanta;
    test::NullHost host;
    host.directory = arguments[1];
    Form_Main table(host);
    table.Form_Load();
    for (std::string line; std::getline(std::cin, line);) {
        table.Command1.Click();
        std::cout << table.state.GamesPlayed << std::endl;
    }
}
