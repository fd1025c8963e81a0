#include "config/zmconfiguration.h"
#include "log/hlogmanager.h"

#include <QCoreApplication>

#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <thread>

// lastwords <step>...: takes the steps in their order and ends. Some make objects that log when they go, which is at
// the end of the process. With the environment variable SPEAKER_BEFORE_MAIN one is made before main().

namespace {

HLogManager* manager()
{
    return SyncSingleton<HLogManager>::instance();
}

void setLogger()
{
    manager()->set(QString(), QString());
}

Logger& sharedLog()
{
    return *manager()->getLog(QString());
}

Logger& newLog()
{
    setLogger();
    return sharedLog();
}

Logger& ownLog()
{
    static Logger log {QString()};
    return log;
}

/// Logs when it goes.
struct Speaker {
    ~Speaker() { log().error(QStringLiteral("last words")); }

    Logger& (*log)() = sharedLog;
};

std::unique_ptr<Speaker> speakerBeforeMain()
{
    if (!std::getenv("SPEAKER_BEFORE_MAIN"))
        return nullptr;
    manager();
    return std::make_unique<Speaker>();
}

const std::unique_ptr<Speaker> beforeMain = speakerBeforeMain();

const std::map<std::string, void (*)()> steps {
    {"settings", [] { SyncSingleton<ZMConfiguration>::instance(); }},
    {"manager", [] { manager(); }},
    {"set", setLogger},
    {"set-in-a-thread", [] { std::thread(setLogger).join(); }},
    {"log", [] { sharedLog().error(QStringLiteral("words")); }},
    {"speaker", [] { static const Speaker speaker; }},
    {"singleton", [] { SyncSingleton<Speaker>::instance(); }},
    {"late-setter", [] { static const Speaker speaker {newLog}; }},
    {"own-logger", [] { ownLog(); }},
    {"own-log", [] { ownLog().error(QStringLiteral("words")); }},
    {"own-speaker", [] { static const Speaker speaker {ownLog}; }},
    {"exit", [] { std::exit(0); }},
};

} // namespace

int main(int argc, char** argv)
{
    std::unique_ptr<QCoreApplication> application;
    for (int i = 1; i < argc; ++i) {
        if (argv[i] == std::string("application"))
            application = std::make_unique<QCoreApplication>(argc, argv);
        else
            steps.at(argv[i])();
    }
    return 0;
}
