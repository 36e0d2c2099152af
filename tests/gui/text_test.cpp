#include "app/text.h"

#include "app/file_chooser.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

TEST(ToQString, ValidUtf8IsTakenAsSuch)
{
    EXPECT_EQ(toQString("Gl\xC3\xB6"
                        "ckner"),
              QString::fromUtf16(u"Gl\u00F6ckner"));
    EXPECT_EQ(toQString(""), QString());
}

TEST(ToQString, AnythingElseIsLatin1)
{
    EXPECT_EQ(toQString("Gl\xF6"
                        "ckner"),
              QString::fromUtf16(u"Gl\u00F6ckner"));
    EXPECT_EQ(toQString("\xC3"), QString::fromUtf16(u"\u00C3"));
}

TEST(PathText, PathsKeepTheirLetters)
{
    const QString name = QString::fromUtf16(u"/a b/\u00F6.nes");
    EXPECT_EQ(pathText(toPath(name)), name);
}

TEST(NameFilters, EveryPairBecomesAFilterThatNamesItsPattern)
{
    EXPECT_EQ(nameFilters("NES roms (*.nes)|*.nes|All Files (*.*)|*.*||"),
              (QStringList{"NES roms (*.nes) (*.nes)", "All Files (*.*) (*)"}));
}

TEST(NameFilters, IncompletePairsAreDropped)
{
    EXPECT_EQ(nameFilters(""), QStringList());
    EXPECT_EQ(nameFilters("||"), QStringList());
    EXPECT_EQ(nameFilters("Text"), QStringList());
}

} // namespace
} // namespace velko
