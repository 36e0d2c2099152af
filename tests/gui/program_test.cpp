#include "app/end_process.h"
#include "tests/support/game_folder.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <gtest/gtest.h>

namespace velko {
namespace {

using test::GameFolder;
using test::TestRom;

QProcessEnvironment environment(const char* platform)
{
    QProcessEnvironment values = QProcessEnvironment::systemEnvironment();
    values.insert("QT_QPA_PLATFORM", platform);
    values.remove("VELKO_TRACE");
    return values;
}

// One of the programs, run to its end.
class Program {
public:
    Program(const char* file, const QStringList& arguments, const char* platform)
        : Program(file, arguments, environment(platform))
    {
    }
    Program(const char* file, const QStringList& arguments, const QProcessEnvironment& values)
    {
        m_process.setProcessEnvironment(values);
        m_process.start(file, arguments);
        m_process.waitForFinished();
    }
    int status() const
    {
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }
    QString output() { return QString::fromLocal8Bit(m_process.readAllStandardOutput()); }
    QString errors() { return QString::fromLocal8Bit(m_process.readAllStandardError()); }

private:
    QProcess m_process;
};

constexpr const char* kOffscreen = "offscreen";

TEST(VelkoProgram, AnswersHelpAndVersionWithoutADisplay)
{
    Program help(VELKO_PROGRAM, {"--help"}, "no such platform");
    EXPECT_EQ(help.status(), 0);
    EXPECT_TRUE(help.output().startsWith("Usage: velko [-C DIR] [ROM]\n"));
    Program version(VELKO_PROGRAM, {"--version"}, "no such platform");
    EXPECT_EQ(version.status(), 0);
    EXPECT_TRUE(version.output().startsWith("velko "));
}

TEST(VelkoProgram, RefusesWrongArguments)
{
    Program unknown(VELKO_PROGRAM, {"--frob"}, kOffscreen);
    EXPECT_EQ(unknown.status(), 2);
    EXPECT_TRUE(unknown.errors().contains("velko: unknown option --frob\n"));
    Program folder(VELKO_PROGRAM, {"-C", "no such folder"}, kOffscreen);
    EXPECT_EQ(folder.status(), 2);
    EXPECT_TRUE(folder.errors().contains("velko: no such folder: "));
}

// The editor itself, in a working folder. Every window that it shows is left at once, and its
// text or title becomes a line of the output.
class VelkoSession : public testing::Test {
protected:
    Program run(const QStringList& arguments, bool traceVariable = false) const
    {
        QProcessEnvironment values = environment(kOffscreen);
        values.insert("QT_PLUGIN_PATH",
                      VELKO_TEST_PLUGINS + QString(QDir::listSeparator())
                          + values.value("QT_PLUGIN_PATH"));
        values.insert("QT_QPA_GENERIC_PLUGINS", "WindowLeaver");
        if (traceVariable)
            values.insert("VELKO_TRACE", "1");
        const QString work = QString::fromStdString(folder.path().string());
        return {VELKO_PROGRAM, QStringList{"-C", work} + arguments, values};
    }

    GameFolder folder;
};

TEST_F(VelkoSession, ShowsTheGameAndEndsWithItsWindow)
{
    Program program = run({"game.nes"});
    EXPECT_EQ(program.status(), 0);
    const std::string title = program.output().trimmed().toStdString();
    EXPECT_EQ(title, "Olvard - v4 - " + folder.rom().string());
}

TEST_F(VelkoSession, DecliningToChooseARomEndsWithoutAMessage)
{
    Program program = run({});
    EXPECT_EQ(program.status(), 0);
    EXPECT_EQ(program.output().trimmed(), "Choose a ROM file");
}

TEST_F(VelkoSession, UnreadableRomIsToldAndEnds)
{
    Program program = run({"missing.nes"});
    EXPECT_EQ(program.status(), 0);
    EXPECT_EQ(program.output().trimmed(), "Failed to load the ROM file. Quitting.");
}

TEST_F(VelkoSession, DecliningAQuestionableScalarEndsWithItsStatus)
{
    folder.write("modules/toy/data.yaml", "miscData:\n  Rooms: 3\n");
    Program program = run({"game.nes"});
    EXPECT_EQ(program.status() & 0xFF, 222); // all that some systems keep of 49374
    EXPECT_EQ(program.output().trimmed(),
              "YAML content recognized as neither key or value. (Check spelling and letter "
              "case!). Press Cancel to quit.");
}

#ifndef _WIN32 // where the trace goes to the debugger
TEST_F(VelkoSession, TracesWhenAskedByOptionOrVariable)
{
    EXPECT_TRUE(
        run({"game.nes", "--trace"}).errors().contains("Now YAML reading ended somehow.\nl"));
    EXPECT_TRUE(run({"game.nes"}, true).errors().contains("Now YAML reading ended somehow.\nl"));
}
#endif

TEST_F(VelkoSession, DoesNotTraceUnasked)
{
    Program program = run({"game.nes"});
    EXPECT_TRUE(program.output().startsWith("Olvard")); // all has been read
    EXPECT_FALSE(program.errors().contains("Now YAML"));
}

#ifndef _WIN32
TEST(EndProcessDeathTest, StatusIsSeenByItsLowByte)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(endProcess(0), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(endProcess(49374), testing::ExitedWithCode(222), "");
}
#endif

TEST(PicturesProgram, WritesAPictureOfEveryTabForTheFirstAndTheLargestRoom)
{
    TestRom game(3);
    game.setLayout(1, 2, 2, {0, 0, 0, 0});
    const GameFolder folder(game);
    const std::string out = (folder.path() / "out").string();
    Program pictures(VELKO_PICTURES_PROGRAM,
                     {QString::fromStdString(folder.path().string()),
                      QString::fromStdString(folder.rom().string()), QString::fromStdString(out)},
                     kOffscreen);
    EXPECT_EQ(pictures.status(), 0) << pictures.errors().toStdString();
    const QDir written(QString::fromStdString(out));
    EXPECT_EQ(written.entryList(QDir::Files).size(), 23);
    EXPECT_FALSE(QImage(written.filePath("map-allocation-room-0.png")).isNull());
    EXPECT_FALSE(QImage(written.filePath("data-management-room-1.png")).isNull());
    EXPECT_FALSE(QImage(written.filePath("room-selector.png")).isNull());
    EXPECT_FALSE(QImage(written.filePath("main-map-editor-truck.png")).isNull());
}

TEST(PicturesProgram, FailsOnARomItCannotRead)
{
    const GameFolder folder;
    const QString work = QString::fromStdString(folder.path().string());
    Program pictures(VELKO_PICTURES_PROGRAM, {work, work + "/missing.nes", work + "/out"},
                     kOffscreen);
    EXPECT_EQ(pictures.status(), 1);
    EXPECT_TRUE(pictures.errors().contains("Failed to load the ROM file. Quitting."));
    EXPECT_EQ(Program(VELKO_PICTURES_PROGRAM, {}, kOffscreen).status(), 2);
}

} // namespace
} // namespace velko
