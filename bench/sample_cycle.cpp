// SPDX-License-Identifier: GPL-3.0-or-later
// One sample cycle without its fixed waits, with 1,000,000 rows in the live table against 1,000.
#include "log_page.h"

#include <QApplication>

using namespace orb;

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    bench::LogPage few(1000), many(1'000'000);
    const auto cycle = [](bench::LogPage& log) {
        return bench::seconds([&] { log.enter([&] { log.page.FetchLogSample(); }); }, 1);
    };
    std::vector<double> ofFew, ofMany;
    for (int i = 0; i < 600; ++i) {
        ofFew.push_back(cycle(few));
        ofMany.push_back(cycle(many));
    }
    return bench::report("sample cycle, 1,000,000 rows against 1,000", bench::median(ofMany) / bench::median(ofFew),
                         1.3);
}
