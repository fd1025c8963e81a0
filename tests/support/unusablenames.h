#ifndef ZELMORA_TESTS_SUPPORT_UNUSABLENAMES_H
#define ZELMORA_TESTS_SUPPORT_UNUSABLENAMES_H

#include <QByteArrayList>
#include <QString>

#include <algorithm>
#include <filesystem>

// File names that are no UTF-8: the toolkit on Qt 5 has them, that on Qt 6 refuses them.

inline bool refusesNames()
{
    return qVersion()[0] == '6';
}

/// What is said of such a name.
const char* const nameRefused = "its name is no UTF-8: give it another one";

/// The text that the toolkit itself has for the name "caff\xe8" where it refuses it.
inline QString unusableName()
{
    return QStringLiteral("caff") + QChar(QChar::ReplacementCharacter);
}

/// The names in @p folder as the system has them, in their order.
inline QByteArrayList namesIn(const QString& folder)
{
    QByteArrayList names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.toStdString()))
        names += QByteArray::fromStdString(entry.path().filename().native());
    std::sort(names.begin(), names.end());
    return names;
}

#endif
