// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_bytes.h"

#include <gtest/gtest.h>

namespace orb {

TEST(TextBytesTest, UTF8IsReadAsSuch)
{
    EXPECT_EQ(textOf("caf\xc3\xa9 \xf0\x9f\x92\x80"), QString::fromUtf8("caf\xc3\xa9 \xf0\x9f\x92\x80"));
    EXPECT_EQ(textOf(""), "");
}

TEST(TextBytesTest, EveryByteComesBack)
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (const QByteArray& bytes :
         {all, QByteArray("caf\xe9?"), QByteArray("\xc3"), QByteArray("\xff\x80\x7f"),
          QByteArray("\xc3\xa9\xe9\xc3\xa9"), QByteArray("a\0b", 3), QByteArray("\xed\xb2\x80"),
          QByteArray("caf\xc3\xa9"), QByteArray("\xf0\x9f\x92\x80"), QByteArray("\xef\xbb\xbf\xef\xbb\xbf")})
        EXPECT_EQ(bytesOf(textOf(bytes)), bytes) << bytes.toHex().toStdString();
}

TEST(TextBytesTest, ATypedTextIsUTF8)
{
    EXPECT_EQ(bytesOf(QStringLiteral("\u00e9\u03a9\u00ff\u0080")), "\xc3\xa9\xce\xa9\xc3\xbf\xc2\x80");
    EXPECT_EQ(bytesOf(QString::fromUtf8("\xf0\x9f\x92\x80")), "\xf0\x9f\x92\x80"); // its second half is U+DC80
}

TEST(TextBytesTest, KeptBytesMayStandBesideTypedText)
{
    EXPECT_EQ(bytesOf(QStringLiteral("\u03a9") + textOf("\xe9\xff") + QStringLiteral("\u03a9")),
              "\xce\xa9\xe9\xff\xce\xa9");
}

} // namespace orb
