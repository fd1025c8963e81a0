#ifndef ZELMORA_CONFIG_TRANSLATION_H
#define ZELMORA_CONFIG_TRANSLATION_H

class QString;
class QTranslator;
class ZMConfiguration;

/// Loads the catalogue that @p settings name: "zelmora.language.basedir" directly followed by
/// "zelmora.language.file", or by "/zelmora_" and the name of the system's locale when the file is "/". False without a
/// readable one: texts stay as they are.
bool loadTranslation(QTranslator& translator, const ZMConfiguration& settings);
/// The same with what the two settings say.
bool loadTranslation(QTranslator& translator, const QString& directory, const QString& file);
/// Where the catalogue is looked for first, but for what the toolkit adds to it.
QString cataloguePath(const QString& directory, const QString& file);

#endif
