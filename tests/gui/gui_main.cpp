#include <QApplication>
#include <QFont>
#include <gtest/gtest.h>

// Window tests need an application, and no display.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    // The same sizes wherever the tests run, whichever fonts are installed besides.
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
