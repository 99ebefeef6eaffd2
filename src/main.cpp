#include "app/Application.h"
#include "app/HandOverMessage.h"

#include <QDir>

#include <csignal>

int main(int argc, char** argv) {
    constexpr int primaryTimeoutMs = 1000;
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow fails its save, and the program lives
    qputenv("QT_AUTO_SCREEN_SCALE_FACTOR", "1");
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    Application application(argc, argv, true, SingleApplication::PerUser, primaryTimeoutMs);
    if (application.isSecondary()) {
        if (application.handOver(HandOverMessage::joinArguments(QCoreApplication::arguments()), QDir::currentPath())) {
            return 0;
        }
        application.startUp();
    }
    return QCoreApplication::exec();
}
