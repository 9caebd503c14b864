// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>

namespace orb {
namespace {

QDir manual()
{
    return {binaryDirectory() + QStringLiteral("/manual")};
}

QString contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// The values of an attribute in a page, without those that lead out to the web.
QStringList valuesOf(const QString& page, const QString& attribute)
{
    QStringList values;
    QRegularExpression pattern(QStringLiteral("\\b%1=\"([^\"]*)\"").arg(attribute));
    for (auto match = pattern.globalMatch(page); match.hasNext();)
        if (const QString value = match.next().captured(1); !value.startsWith(QStringLiteral("http")))
            values << value;
    return values;
}

/// The text of each page by its name.
QMap<QString, QString> pages()
{
    QMap<QString, QString> pages;
    for (const QString& name : manual().entryList({QStringLiteral("*.html")}, QDir::Files))
        pages[name] = contentOf(manual().filePath(name));
    return pages;
}

TEST(ManualLinksTest, ThePagesThatTheProgramAndTheReadmeNameAreThere)
{
    for (const char* name : {"index.html", "first-test.html", "manual.html", "before-a-night.html",
                             "troubleshooting.html", "files.html", "manual.css"})
        EXPECT_TRUE(manual().exists(QLatin1String(name))) << name;
}

TEST(ManualLinksTest, EveryLinkLeadsToAPageAndToAPlaceOnIt)
{
    const QMap<QString, QString> all = pages();
    int places = 0;
    for (auto page = all.begin(); page != all.end(); ++page) {
        for (const QString& link : valuesOf(page.value(), QStringLiteral("href"))) {
            const QString name = link.section(QLatin1Char('#'), 0, 0);
            const QString place = link.section(QLatin1Char('#'), 1);
            const QString target = name.isEmpty() ? page.key() : name;
            EXPECT_TRUE(manual().exists(target)) << page.key().toStdString() << ": " << link.toStdString();
            if (place.isEmpty())
                continue;
            ++places;
            EXPECT_TRUE(valuesOf(all[target], QStringLiteral("id")).contains(place))
                << page.key().toStdString() << ": " << link.toStdString();
        }
    }
    EXPECT_GT(places, 50) << "the contents of the pages are links too";
}

TEST(ManualLinksTest, EveryPictureIsThereAndIsAPictureWithADescription)
{
    int pictures = 0;
    for (const QString& page : pages()) {
        const QStringList sources = valuesOf(page, QStringLiteral("src"));
        pictures += static_cast<int>(sources.size());
        for (const QString& source : sources)
            EXPECT_FALSE(QImage(manual().filePath(source)).isNull()) << source.toStdString();
        EXPECT_EQ(valuesOf(page, QStringLiteral("alt")).size(), sources.size());
        EXPECT_FALSE(valuesOf(page, QStringLiteral("alt")).contains(QString()));
    }
    EXPECT_GE(pictures, 20);
}

TEST(ManualLinksTest, ALinkToAPlaceOnAnotherPageKeepsThePlace)
{
    EXPECT_THAT(valuesOf(contentOf(manual().filePath(QStringLiteral("troubleshooting.html"))), QStringLiteral("href")),
                testing::Contains(QStringLiteral("before-a-night.html#midnight")));
}

TEST(ManualLinksTest, EachPageMarksItselfInTheListAndShowsNothingOfItsSource)
{
    const QMap<QString, QString> all = pages();
    for (auto page = all.begin(); page != all.end(); ++page) {
        const std::string name = page.key().toStdString();
        const QString mark = QStringLiteral("<a href=\"%1\" aria-current=\"page\">").arg(page.key());
        EXPECT_EQ(page->count(QStringLiteral("aria-current")), 1) << name;
        EXPECT_TRUE(page->contains(mark)) << name;
        EXPECT_LE(page->count(QStringLiteral("class=\"toc\"")), 1) << name;
        EXPECT_TRUE(page->contains(QStringLiteral("<html lang=\"en\">"))) << name;
        EXPECT_FALSE(page->contains(QStringLiteral(".html</a>"))) << name;
        EXPECT_FALSE(page->contains(QStringLiteral(".md</a>"))) << name << ": a link is called by its page's title";
        EXPECT_FALSE(page->contains(QStringLiteral("|---"))) << name << ": a table is not one";
        EXPECT_FALSE(page->section(QStringLiteral("</title>"), 0, 0).contains(QLatin1Char('`'))) << name;
    }
}

TEST(ManualLinksTest, EveryDocumentIsAPage)
{
    QStringList missing;
    const QDir documents(sourceDirectory() + QStringLiteral("/docs"));
    for (QString name : documents.entryList({QStringLiteral("*.md")}, QDir::Files)) {
        name.replace(QStringLiteral("README.md"), QStringLiteral("index.md"))
            .replace(QStringLiteral(".md"), QStringLiteral(".html"));
        if (!manual().exists(name))
            missing << name;
    }
    EXPECT_EQ(missing.join(QLatin1Char(' ')).toStdString(), "");
}

TEST(ManualLinksTest, NoPictureOfTheDocumentsIsLargerThanAHundredKilobytesAndTheMovingOneThanAMegabyte)
{
    const QDir folder(sourceDirectory() + QStringLiteral("/docs/pictures"));
    for (const QFileInfo& picture :
         folder.entryInfoList({QStringLiteral("*.png"), QStringLiteral("*.gif")}, QDir::Files))
        EXPECT_LE(picture.size(), picture.suffix() == QLatin1String("gif") ? 1'000'000 : 102'400)
            << picture.fileName().toStdString();
}

} // namespace
} // namespace orb
