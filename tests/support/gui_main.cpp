#include <QApplication>
#include <QTemporaryDir>
#include <gmock/gmock.h>

// Off the screen, unless another platform is asked for, and away from the preferences and the screen of whoever runs
// the tests: a pixel of a picture is one of the widget.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    for (char const* const name : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS"})
        qunsetenv(name);
    QTemporaryDir const home;
    for (char const* const name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
        qputenv(name, home.path().toLocal8Bit());
    testing::InitGoogleMock(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
