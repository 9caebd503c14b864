// SPDX-License-Identifier: GPL-3.0-or-later
#include "panel_map.h"

#include "failure.h"
#include "printing.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <optional>

using namespace orb;

namespace {

class PanelMapTest : public testing::Test {
protected:
    /// The number of the failure of reading a file of this content; 0 without one.
    int read(const QByteArray& content)
    {
        QFile file(application.filePath("ORBScrBtn.dat"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
        file.close();
        return read();
    }

    int read()
    {
        try {
            map.InitDevButton(Paths(application.path()));
        } catch (const RuntimeFailure& failure) {
            return failure.number();
        }
        return 0;
    }

    QStringList rows() const
    {
        QStringList rows;
        for (int i = 0; i < map.nDevButton; ++i) {
            const DevButton& button = map.aDevButton[static_cast<std::size_t>(i)];
            rows << QStringLiteral("%1|%2 %3 %4 %5")
                        .arg(button.sName)
                        .arg(button.nLeft)
                        .arg(button.nTop)
                        .arg(button.nRight)
                        .arg(button.nBottom);
        }
        return rows;
    }

    QString hit(float x, float y) const
    {
        const DevButton* button = map.hit(x, y);
        return button ? button->sName : QStringLiteral("none");
    }

    QTemporaryDir application;
    PanelMap map;
};

const QByteArray row = "K,1,2,3,4\r\n";

TEST_F(PanelMapTest, ARowIsANameAndFourEdges)
{
    EXPECT_EQ(read("F1,380,120,530,290\r\nenter,-32768,0,32767,5\r\n"), 0);
    EXPECT_EQ(rows(), QStringList({"F1|380 120 530 290", "enter|-32768 0 32767 5"}));
}

TEST_F(PanelMapTest, TheNameIsTakenAsItStandsWithItsBlanks)
{
    read(" F 1 ,1,2,3,4\r\n,1,2,3,4\r\n");
    EXPECT_EQ(rows(), QStringList({" F 1 |1 2 3 4", "|1 2 3 4"}));
}

TEST_F(PanelMapTest, AnEdgeIsCutDownToTheWholeNumberAtOrBelowIt)
{
    read("F1,100.9,0,5,5\r\nF2,-0.5,-1.0,32767.9,1E2\r\n");
    EXPECT_EQ(rows(), QStringList({"F1|100 0 5 5", "F2|-1 -1 32767 100"}));
}

TEST_F(PanelMapTest, FieldsAfterTheFifthAreIgnored)
{
    EXPECT_EQ(read("F1,1,2,3,4,five,,6\r\n"), 0);
    EXPECT_EQ(rows(), QStringList({"F1|1 2 3 4"}));
}

TEST_F(PanelMapTest, BlankLinesArePassedOverAndUseNoRow)
{
    EXPECT_EQ(read("\r\n\r\nA,1,2,3,4\r\n\r\nB,1,2,3,4\r\n\r\n"), 0);
    EXPECT_EQ(rows(), QStringList({"A|1 2 3 4", "B|1 2 3 4"}));
}

TEST_F(PanelMapTest, ALineOfBlanksIsARowOfTooFewFields)
{
    EXPECT_EQ(read("A,1,2,3,4\r\n  \r\n"), failure::SubscriptOutOfRange);
}

TEST_F(PanelMapTest, ALineOfFourFieldsIsAFailure)
{
    EXPECT_EQ(read("A,1,2,3\r\n"), failure::SubscriptOutOfRange);
}

TEST_F(PanelMapTest, AnEdgeThatIsNoNumberIsAFailureInEachOfItsPlaces)
{
    EXPECT_EQ(read("A,x,2,3,4\r\n"), failure::TypeMismatch);
    EXPECT_EQ(read("A,1,,3,4\r\n"), failure::TypeMismatch);
    EXPECT_EQ(read("A,1,2,3x,4\r\n"), failure::TypeMismatch);
    EXPECT_EQ(read("A,1,2,3,four\r\n"), failure::TypeMismatch);
}

TEST_F(PanelMapTest, AnEdgeBeyond16BitsIsAFailure)
{
    EXPECT_EQ(read("A,32768,2,3,4\r\n"), failure::Overflow);
    EXPECT_EQ(read("A,1,2,3,-32768.5\r\n"), failure::Overflow);
}

TEST_F(PanelMapTest, AMapOf51RowsIsReadAndOneOf52IsNot)
{
    EXPECT_EQ(read(row.repeated(51)), 0);
    EXPECT_EQ(map.nDevButton, 51);
    EXPECT_EQ(read(row.repeated(51) + "\r\n"), 0) << "a blank line is no row";
    EXPECT_EQ(read(row.repeated(52)), failure::SubscriptOutOfRange);
}

TEST_F(PanelMapTest, AMapThatWasNotReadHasNoRow)
{
    EXPECT_THAT(rows(), testing::IsEmpty());
    EXPECT_EQ(hit(0, 0), "none");
}

TEST_F(PanelMapTest, AMissingFileIsAFailure)
{
    EXPECT_EQ(read(), failure::FileNotFound);
}

TEST_F(PanelMapTest, AnEmptyMapHasNoRowAndNoPlaceIsAKey)
{
    read("A,0,0,100,100\r\n");
    ASSERT_EQ(hit(50, 50), "A");
    EXPECT_EQ(read(""), 0);
    EXPECT_EQ(map.nDevButton, 0);
    EXPECT_EQ(hit(50, 50), "none");
}

TEST_F(PanelMapTest, APointOnAnEdgeIsOutsideOfTheKey)
{
    read("A,100,200,300,400\r\n");
    EXPECT_EQ(hit(100.5F, 200.5F), "A");
    EXPECT_EQ(hit(299.5F, 399.5F), "A");
    EXPECT_EQ(hit(100, 300), "none");
    EXPECT_EQ(hit(300, 300), "none");
    EXPECT_EQ(hit(200, 200), "none");
    EXPECT_EQ(hit(200, 400), "none");
}

TEST_F(PanelMapTest, OfTwoOverlappingKeysTheEarlierRowIsHit)
{
    read("A,0,0,100,100\r\nB,50,0,150,100\r\n");
    EXPECT_EQ(hit(75, 50), "A");
    EXPECT_EQ(hit(125, 50), "B");
}

} // namespace
