#include "log/hlogmanager.h"

template class SyncSingleton<HLogManager>;

namespace {

QString defaultName()
{
    return QStringLiteral("default");
}

} // namespace

HLogManager::HLogManager()
{
    Logger::prepare();
}

HLogManager::~HLogManager()
{
    qDeleteAll(loggers);
}

void HLogManager::set(const QString& loggerArgument, const QString& name)
{
    auto logger = std::make_unique<Logger>(loggerArgument);
    Logger*& entry = loggers[name.isEmpty() ? defaultName() : name];
    if (entry)
        replaced.emplace_back(entry);
    entry = logger.release();
}

Logger* HLogManager::getLog(const QString& name)
{
    return name.isEmpty() ? loggers[defaultName()] : loggers.value(name);
}
