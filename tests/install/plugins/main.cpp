#include "instances.h"

#include <QCoreApplication>
#include <QLibrary>

#include <cstdio>
#include <set>
#include <vector>

using InstanceOf = decltype(&instanceOf);

/// The function of the plug-in of that name, which is loaded, and unloaded again: it must stay all the same.
static InstanceOf functionOf(const char* name)
{
    QLibrary plugin(QCoreApplication::applicationDirPath() + "/lib" + name);
    const auto function = reinterpret_cast<InstanceOf>(plugin.resolve("instanceOf"));
    if (!function || !plugin.unload())
        qFatal("%s: %s", name, qPrintable(plugin.errorString()));
    return function;
}

/// How many of a kind there are, as the functions see it; a null is none.
static std::size_t count(const std::vector<InstanceOf>& functions, Kind kind)
{
    std::set<const void*> instances;
    for (const InstanceOf function : functions)
        instances.insert(function(kind));
    return instances.size() - instances.count(nullptr);
}

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    std::vector<InstanceOf> functions {functionOf("first"), functionOf("second")};
#ifdef USES_THE_LIBRARY
    functions.push_back(instanceOf);
#endif
    std::printf("settings: %zu\n", count(functions, Kind::Settings));
    std::printf("logs: %zu\n", count(functions, Kind::Logs));
    std::printf("databases: %zu\n", count(functions, Kind::Databases));
    std::printf("of a class of its own: %zu\n", count(functions, Kind::OwnClass));
    std::printf("connections: %zu\n", count(functions, Kind::Connection));
}
