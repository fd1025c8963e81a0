#ifndef ZELMORA_TESTS_SUPPORT_SETTINGS_H
#define ZELMORA_TESTS_SUPPORT_SETTINGS_H

class QByteArray;

/// Replaces the process-wide settings by the brace-format text @p text, for the drivers made afterwards.
void useSettings(const QByteArray& text);

#endif
