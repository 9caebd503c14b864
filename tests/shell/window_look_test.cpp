// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_card.h"
#include "dark_palette.h"
#include "device_control.h"
#include "form_orb_test.h"

#include <QApplication>
#include <QLabel>
#include <QStyle>

using namespace orb;
using testing::IsEmpty;

namespace {

/// The whole window with the real instrument control, connected to the simulated instrument, in a font and in colors of
/// the desktop.
class WindowLookTest : public PageTest {
protected:
    ~WindowLookTest() override
    {
        QApplication::setPalette(QApplication::style()->standardPalette());
        QApplication::setFont(font_);
    }

    /// Starts the program as on a desktop with a font of so many points.
    void start(int points)
    {
        QFont font = font_;
        font.setPointSize(points);
        QApplication::setFont(font);
        QFile::remove(application.filePath("link.ini"));
        CORB.emplace(clock, standardLinkKinds(clock), application.filePath("link.ini"));
        form.emplace(clock, dialogs, paths, *CORB, systemTools);
        form->setRowEnd(CORB->allOffBar);
        run.enter([&] { form->FormLoad(); });
        form->show();
        press(form->pageConnect);
        press(CORB->connectPage.cmdConnect);
        clock.advance(3000);
        ASSERT_TRUE(CORB->IsConnected());
    }

    void stop()
    {
        form.reset();
        CORB.reset();
    }

    /// Runs `look` on every page and on every frame that stands over one.
    void onEveryPage(const std::function<void(const QString& page)>& look)
    {
        dialogs.answers.assign(20, Answer::No);
        const auto show = [&](PictureButton& button) {
            press(button);
            clock.advance(1000);
            settle();
            look(button.caption());
        };
        for (PictureButton* button : {&form->pageConnect, &form->pageControl, &form->pageCommand, &form->pageWave,
                                      &form->pageSequence, &form->PageProgram})
            show(*button);
        ProgramPage& program = form->fraProgram;
        run.enter([&] { program.txtMemSettingMouseDown(34); });
        settle();
        look("Program step");
        press(program.cmdMemSetCancel);
        press(program.progOrder);
        settle();
        look("Program chain");
        press(program.cmdProgOrderCancel);
        press(form->pageWave);
        press(form->frmDatalog.logDelete);
        settle();
        look("Saved logs");
        press(form->frmDatalog.FrameDataFileOperate.cmdCancelDataLogFile);
    }

    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }

    template <typename Widget> std::vector<const Widget*> shown() const
    {
        std::vector<const Widget*> widgets;
        for (const auto* widget : form->findChildren<Widget*>())
            if (widget->isVisible())
                widgets.push_back(widget);
        return widgets;
    }

    RecordedSystemTools systemTools;
    std::optional<DeviceControl> CORB;
    std::optional<FormORB> form;

private:
    const QFont font_ = QApplication::font();
};

// Captions

int widthOf(const QFont& font, const QString& text)
{
    return QFontMetrics(font).size(Qt::TextShowMnemonic, text).width();
}

bool isCut(const QLabel& label)
{
    const QRect room = label.contentsRect().adjusted(label.margin(), 0, -label.margin(), 0);
    if (label.wordWrap())
        return label.heightForWidth(label.width()) > label.height();
    return widthOf(label.font(), label.text()) > room.width() || label.fontMetrics().ascent() > label.height();
}

bool isCut(const QAbstractButton& button)
{
    if (const auto* picture = dynamic_cast<const PictureButton*>(&button))
        return widthOf(picture->captionFont(), picture->shownCaption()) > button.width();
    return button.sizeHint().width() > button.width() || button.sizeHint().height() > button.height();
}

TEST_F(WindowLookTest, NoCaptionIsCutOffInFontsOf9To14Points)
{
    for (const int points : {9, 11, 14}) {
        start(points);
        QStringList cut;
        onEveryPage([&](const QString& page) {
            const auto add = [&](const QString& text, const QWidget& widget) {
                cut << QStringLiteral("%1 points, %2: \"%3\" in %4 x %5")
                           .arg(points)
                           .arg(page, text)
                           .arg(widget.width())
                           .arg(widget.height());
            };
            for (const QLabel* label : shown<QLabel>())
                if (isCut(*label))
                    add(label->text(), *label);
            for (const QAbstractButton* button : shown<QAbstractButton>())
                if (!button->text().isEmpty() && isCut(*button))
                    add(button->text(), *button);
        });
        EXPECT_THAT(cut, IsEmpty());
        stop();
    }
}

TEST_F(WindowLookTest, NoPageNeedsMoreThanAScreenOf1024PixelsInFontsOf9To14Points)
{
    for (const int points : {9, 11, 14}) {
        start(points);
        QStringList outside;
        onEveryPage([&](const QString& page) {
            for (const QWidget* widget : shown<QWidget>()) {
                const auto* label = qobject_cast<const QLabel*>(widget);
                if (label && CORB->isAncestorOf(label) &&
                    !CORB->rect().contains(QRect(label->mapTo(&*CORB, QPoint(0, 0)), label->size())))
                    outside << QStringLiteral("%1 points, %2: \"%3\"").arg(points).arg(page, label->text());
                const bool isOfPage = widget->parentWidget() == &*form || widget->parentWidget()->layout() != nullptr;
                const QRect place(widget->mapTo(&*form, QPoint(0, 0)), widget->size());
                const QRect room(0, 0, std::max(form->width(), 1020), form->height()); // the test's own screen has 800
                if (isOfPage && !room.contains(place))
                    outside << QStringLiteral("%1 points, %2: %3 %4")
                                   .arg(points)
                                   .arg(page, QString::fromLatin1(widget->metaObject()->className()),
                                        widget->accessibleName());
            }
        });
        EXPECT_THAT(outside, IsEmpty());
        stop();
    }
}

TEST_F(WindowLookTest, InALowWindowEveryPageIsSmallerThanItsDesignAndReachesOverNoEdge)
{
    start(9);
    const QSize low(1020, 572); // a screen of 1024 by 600 with the frame of a window
    QStringList outside;
    onEveryPage([&](const QString& page) {
        form->setMinimumSize(0, 0); // this screen is higher
        form->resize(low);
        settle();
        for (const QWidget* group : std::initializer_list<const QWidget*>{&*CORB, &form->frmDatalog, &form->fraCommand,
                                                                          &form->fraSequence, &form->fraProgram})
            if (group->isVisible())
                outside << (form->rect().contains(group->geometry()) ? QString() : page + " is cut off");
    });
    outside.removeAll(QString());
    EXPECT_THAT(outside, IsEmpty());
    press(form->pageWave);
    form->setMinimumSize(0, 0);
    form->resize(low);
    settle();
    EXPECT_GE(form->frmDatalog.graphLog.height(), 150);
    EXPECT_GE(form->frmDatalog.DBGrid1.viewport()->height(), 80) << "four rows";
}

TEST_F(WindowLookTest, InALowWindowTheBoxesOfTheCurvesKeepTheirHeightBesideTheFrameOfTheCursor)
{
    start(9);
    DataLogPage& page = form->frmDatalog;
    press(form->pageWave);
    form->setMinimumSize(0, 0);
    form->resize(722, 600); // a little higher than where the boxes always stand side by side
    settle();
    press(page.optGraphMode[2]);
    settle();
    ASSERT_TRUE(page.FrameCursor.isVisible());
    QStringList squeezed;
    for (const CheckBox* box : page.FrameChannel.findChildren<CheckBox*>())
        if (box->height() < box->fontMetrics().height())
            squeezed << box->caption();
    EXPECT_THAT(squeezed, IsEmpty());
    EXPECT_TRUE(page.rect().contains(page.FrameCursor.geometry()));
    EXPECT_GE(page.graphLog.height(), 150);
    EXPECT_GT(page.FrameGraphOperations.x(), page.FrameChannel.geometry().right());

    press(page.optGraphMode[0]);
    settle();
    EXPECT_GT(page.FrameGraphOperations.y(), page.FrameChannel.geometry().bottom()) << "the graph has its width again";
}

TEST_F(WindowLookTest, ALargeFontMakesTheControlPageHigherAndItsCardsTextsLarger)
{
    start(9);
    EXPECT_EQ(CORB->height(), pixels(6675));
    stop();
    start(14);
    const int height = DeviceControl(clock).height();
    EXPECT_GE(height, 30 * QFontMetrics(QApplication::font()).lineSpacing());
    form->setMinimumSize(0, 0);
    CORB->resize(619, height);
    press(form->pageControl);
    clock.advance(2000);
    CORB->resize(619, height);
    settle();
    const ChannelCard& card = *CORB->controlPage.cards.front();
    EXPECT_GE(QFontInfo(card.cmdLoad.font()).pixelSize(), 13);
    EXPECT_GE(card.lblLimits.x() - card.lblUnit.geometry().right(), 13 / 2);
}

// Colors

/// From 1, not at all different in lightness, to 21, black on white.
double contrastOf(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

/// What is painted under the widget's text.
QColor groundOf(const QWidget& widget)
{
    const QWidget* painter = &widget;
    while (!painter->autoFillBackground() && !painter->isWindow())
        painter = painter->parentWidget();
    return painter->palette().color(painter->backgroundRole());
}

TEST_F(WindowLookTest, TheTextsOfAllPagesCanBeReadOnALightAndOnADarkDesktop)
{
    constexpr double readable = 3;
    for (const bool dark : {false, true}) {
        if (dark)
            QApplication::setPalette(darkPalette());
        start(9);
        QStringList unreadable;
        onEveryPage([&](const QString& page) {
            const auto test = [&](const QString& text, const QColor& fore, const QColor& ground) {
                if (contrastOf(fore, ground) < readable)
                    unreadable << QStringLiteral("%1 %2: \"%3\" %4 on %5")
                                      .arg(dark ? "dark" : "light", page, text, fore.name(), ground.name());
            };
            for (const QLabel* label : shown<QLabel>())
                if (label->isEnabled() && !label->text().isEmpty())
                    test(label->text(), label->palette().color(label->foregroundRole()), groundOf(*label));
            for (const QAbstractItemView* view : shown<QAbstractItemView>()) {
                const QPalette colors = view->palette();
                test(view->accessibleName(), colors.color(QPalette::Text), colors.color(QPalette::Base));
                test(view->accessibleName() + " selected", colors.color(QPalette::HighlightedText),
                     colors.color(QPalette::Highlight));
            }
            for (const QLineEdit* field : shown<QLineEdit>())
                if (field->isEnabled())
                    test(field->accessibleName(), field->palette().color(QPalette::Text),
                         field->palette().color(QPalette::Base));
        });
        EXPECT_THAT(unreadable, IsEmpty());
        stop();
    }
}

TEST_F(WindowLookTest, TheWordsOfTheBarAtTheEndOfTheRowHaveTheirRoomOnEveryPage)
{
    start(9);
    press(form->pageControl);
    clock.advance(2000);
    for (std::size_t channel : {0U, 1U, 2U})
        press(CORB->controlPage.cards[channel]->cmdLoad);
    clock.advance(3000);
    QStringList cut;
    onEveryPage([&](const QString& page) {
        for (const Label* label : {&CORB->allOffBar.lblLink, &CORB->allOffBar.lblInputs})
            if (widthOf(label->font(), label->caption()) + 2 > label->width())
                cut << page + ": " + label->caption();
    });
    EXPECT_THAT(cut, IsEmpty());
}

} // namespace
