#ifndef ZELMORA_TESTS_INSTALL_PLUGINS_INSTANCES_H
#define ZELMORA_TESTS_INSTALL_PLUGINS_INSTANCES_H

#include <QtGlobal>

/// What a process has one of.
enum class Kind { Settings, Logs, Databases, OwnClass, Connection };

/// Where the code that is linked with this function, a program or a plug-in, finds the one.
extern "C" Q_DECL_EXPORT const void* instanceOf(Kind kind);

#endif
