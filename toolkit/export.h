#ifndef ZELMORA_TOOLKIT_EXPORT_H
#define ZELMORA_TOOLKIT_EXPORT_H

#include <QtGlobal>

/// What other programs may use of the shared libraries: a class or function declared with it is a name of theirs, and
/// all else is hidden (library/names.map), but for what the libraries take of each other. It says the same where the
/// library is built and where it is used, static ones too: there it lets plug-ins that each link one have the same
/// instance of SyncSingleton.
#define ZELMORA_EXPORT Q_DECL_EXPORT

#endif
