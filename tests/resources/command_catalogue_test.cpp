// SPDX-License-Identifier: GPL-3.0-or-later
#include "console_catalogue.h"
#include "directories.h"

#include <QFile>

#include <gtest/gtest.h>

namespace orb {

TEST(CommandCatalogueTest, TheCatalogueFileIsWhatTheSimulatedInstrumentPrints)
{
    QFile file(sourceDirectory() + QStringLiteral("/resources/orbCommands.dat"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), commandCatalogue())
        << "write it anew: cmake --build build/dev --target command_catalogue";
}

} // namespace orb
