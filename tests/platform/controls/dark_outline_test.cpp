// SPDX-License-Identifier: GPL-3.0-or-later
#include "check_box.h"
#include "combo_box.h"
#include "control_fixture.h"
#include "dark_palette.h"
#include "slide.h"
#include "text_box.h"

#include <QCoreApplication>
#include <QLineEdit>

#include <algorithm>
#include <cstdlib>

using namespace orb;

namespace {

class DarkOutlineTest : public FormTest {
protected:
    /// The largest difference in lightness between the desktop's window and a pixel of the control, from its left edge to
    /// so many pixels inside it.
    static int outlineOf(QWidget& control, int y = 13, int width = 5)
    {
        const QImage image = control.grab().toImage();
        const int window = control.palette().color(QPalette::Window).lightness();
        int largest = 0;
        for (int x = 0; x < width; ++x)
            largest = std::max(largest, std::abs(image.pixelColor(x, y).lightness() - window));
        return largest;
    }

    /// Shows the control on the dark desktop, wide enough for what it has.
    template <typename Widget> Widget& show(Widget& control)
    {
        form.setPalette(darkPalette());
        put(control).setGeometry(10, 10, 120, 26);
        form.show();
        QCoreApplication::processEvents();
        form.setFocus();
        return control;
    }
};

constexpr int visible = 40;

TEST_F(DarkOutlineTest, AnUncheckedBoxIsSeenOnADarkDesktop)
{
    CheckBox box("Ch1 V");
    EXPECT_GT(outlineOf(show(box)), visible);
}

TEST_F(DarkOutlineTest, ABoxThatIsDisabledIsSeenLessWell)
{
    CheckBox box("Ch1 V");
    const int enabled = outlineOf(show(box));
    box.setEnabled(false);
    EXPECT_LT(outlineOf(box), enabled - 20);
}

TEST_F(DarkOutlineTest, AnOptionThatIsNotSelectedIsSeenOnADarkDesktop)
{
    OptionButton option("Pan");
    EXPECT_GT(outlineOf(show(option)), visible);
}

TEST_F(DarkOutlineTest, AnEmptyFieldIsSeenOnADarkDesktop)
{
    TextBox field;
    EXPECT_GT(outlineOf(show(field)), visible);
}

TEST_F(DarkOutlineTest, AnEmptyComboIsSeenOnADarkDesktop)
{
    ComboBox combo;
    EXPECT_GT(outlineOf(show(combo)), visible);
}

TEST_F(DarkOutlineTest, TheGrooveOfASliderIsSeenOnADarkDesktop)
{
    Slide slide({"Axis", "Zoom", "Pan", "Cursor"});
    show(slide).resize(120, 100);
    EXPECT_GT(outlineOf(slide, 80, 20), visible);
}

TEST_F(DarkOutlineTest, OnALightDesktopTheStyleDrawsItsOwn)
{
    TextBox field;
    put(field).setGeometry(10, 10, 120, 26);
    QLineEdit plain(&form);
    plain.setGeometry(field.geometry());
    form.show();
    QCoreApplication::processEvents();
    form.setFocus();
    EXPECT_EQ(field.grab().toImage(), plain.grab().toImage());
}

TEST_F(DarkOutlineTest, AFieldWithTheFocusKeepsTheOutlineOfTheFocus)
{
    TextBox field;
    show(field);
    form.activateWindow();
    field.setFocus();
    QCoreApplication::processEvents();
    ASSERT_TRUE(field.hasFocus());
    const QColor edge = field.grab().toImage().pixelColor(0, 13);
    EXPECT_GT(edge.blue(), edge.red() + 40) << qPrintable(edge.name());
}

} // namespace
