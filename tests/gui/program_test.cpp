#include "app/end_process.h"
#include "tests/support/game_folder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QProcess>
#include <gtest/gtest.h>

namespace velko {
namespace {

using test::GameFolder;
using test::TestRom;

// One of the programs, run to its end.
class Program {
public:
    explicit Program(const char* file, const QStringList& arguments, const char* platform)
    {
        start(file, arguments, platform);
        m_process.waitForFinished();
    }
    int status() const
    {
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }
    QString output() { return QString::fromLocal8Bit(m_process.readAllStandardOutput()); }
    QString errors() { return QString::fromLocal8Bit(m_process.readAllStandardError()); }

private:
    void start(const char* file, const QStringList& arguments, const char* platform)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", platform);
        m_process.setProcessEnvironment(environment);
        m_process.start(file, arguments);
    }

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

// The editor runs until its window is closed, so it is watched rather than waited for.
class RunningVelko {
public:
    RunningVelko(const QStringList& arguments, bool traceVariable)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", kOffscreen);
        if (traceVariable)
            environment.insert("VELKO_TRACE", "1");
        m_process.setProcessEnvironment(environment);
        m_process.start(VELKO_PROGRAM, arguments);
    }
    ~RunningVelko()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    bool saysOnStandardError(const QByteArray& text)
    {
        QElapsedTimer clock;
        clock.start();
        while (!m_heard.contains(text) && !clock.hasExpired(20000)) {
            m_process.waitForReadyRead(100);
            m_heard += m_process.readAllStandardError();
        }
        return m_heard.contains(text);
    }

private:
    QProcess m_process;
    QByteArray m_heard;
};

TEST(VelkoProgram, TracesWhenAskedByOptionOrVariable)
{
    const GameFolder folder;
    const QString work = QString::fromStdString(folder.path().string());
    RunningVelko byOption({"-C", work, "game.nes", "--trace"}, false);
    EXPECT_TRUE(byOption.saysOnStandardError("Now YAML reading ended somehow.\nl"));
    RunningVelko byVariable({"-C", work, "game.nes"}, true);
    EXPECT_TRUE(byVariable.saysOnStandardError("Now YAML reading ended somehow.\nl"));
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
    EXPECT_EQ(written.entryList(QDir::Files).size(), 18);
    EXPECT_FALSE(QImage(written.filePath("map-allocation-room-0.png")).isNull());
    EXPECT_FALSE(QImage(written.filePath("data-management-room-1.png")).isNull());
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
