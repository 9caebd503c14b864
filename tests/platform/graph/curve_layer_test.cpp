// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_layer.h"
#include "graph_test.h"

namespace orb {
namespace {

using testing::ElementsAre;

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(CurveLayerTest, WholePixelsAreFilledWhollyAndOthersByTheirShare)
{
    QImage image(10, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    Columns columns(10);
    columns[5] = {10.5, 13.25};
    columns[6] = {20.25, 20.75};
    columns[7] = {-infinity, infinity};
    columns[8] = {99.5, 300};
    columns[9] = {-5, -1};
    fillColumns(image, columns, Qt::white);
    std::vector<int> alphas;
    for (const QPoint& at : {QPoint(5, 9),
                             {5, 10},
                             {5, 11},
                             {5, 12},
                             {5, 13},
                             {5, 14},
                             {6, 20},
                             {7, 0},
                             {7, 99},
                             {8, 98},
                             {8, 99},
                             {9, 0}})
        alphas.push_back(qAlpha(image.pixel(at)));
    EXPECT_THAT(alphas, ElementsAre(0, 128, 255, 255, 64, 0, 128, 255, 255, 0, 128, 0));
}

TEST(CurveLayerTest, APartlyCoveredPixelIsMixedWithWhatIsUnderIt)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(0, 100, 200));
    fillColumns(image, {Extent{0, 0.25}}, QColor(200, 100, 0));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(50, 100, 150));
}

/// A graph of one curve in red, so that each pixel shows how much of it the curve covers.
class OneCurveTest : public testing::Test {
protected:
    void draw(std::vector<double> values, double increment)
    {
        graph.resize(400, 300);
        graph.setPlotAreaColor(Qt::black);
        graph.axis(1).setGridColor(Qt::black);
        graph.axis(2).setGridColor(Qt::black);
        graph.axis(1).SetMinMax(0, 100);
        graph.axis(2).SetMinMax(0, 10);
        graph.plot(1).setLineColor(QColor(255, 0, 0));
        graph.plot(1).PlotY(std::move(values), "0:00", increment);
        image = graph.ControlImage();
    }

    /// How much is covered in the pixel column at `x` of 100, in device pixels.
    double covered(double x) const
    {
        const int column = 2 * graph.plotArea().left() + static_cast<int>(x / 100 * 2 * graph.plotArea().width());
        constexpr int marks = 20; // at the edges
        double sum = 0;
        for (int y = 2 * graph.plotArea().top() + marks; y < 2 * graph.plotArea().bottom() - marks; ++y)
            sum += image.pixelColor(column, y).redF();
        return sum;
    }

    Graph graph{[] {
        GraphPlan plan = twoChannels();
        plan.plots.resize(1);
        return plan;
    }()};
    QImage image;
};

TEST_F(OneCurveTest, ACurveIsTwoPixelsWideWhetherItsPointsAreFarOrClose)
{
    draw({5, 5}, 100);
    EXPECT_NEAR(covered(45), 4, 0.1);
    draw(std::vector<double>(10'001, 5.0), 0.01);
    EXPECT_NEAR(covered(45), 4, 0.1);
}

TEST_F(OneCurveTest, ALineBetweenPointsFarOutOfViewCrossesTheAreaWhereItShould)
{
    draw({-1e6, 1e6 + 10}, 100); // through 5 at x 50
    const int left = 2 * graph.plotArea().left() + graph.plotArea().width();
    const int middle = 2 * graph.plotArea().top() + graph.plotArea().height();
    EXPECT_GT(image.pixelColor(left, middle).red(), 200);
    EXPECT_EQ(covered(49), 0);
    EXPECT_EQ(covered(51), 0);
    graph.axis(1).SetMinMax(50 - 1e-5, 50 + 1e-5);
    graph.axis(2).SetMinMax(4, 6);
    image = graph.ControlImage();
    EXPECT_GT(covered(45), 4);
    EXPECT_NEAR(covered(42), covered(45), 1);
}

TEST_F(OneCurveTest, ASinglePointIsADot)
{
    draw({5}, 1);
    graph.axis(1).SetMinMax(-45, 55);
    image = graph.ControlImage();
    EXPECT_NEAR(covered(45), 4, 1);
}

} // namespace
} // namespace orb
