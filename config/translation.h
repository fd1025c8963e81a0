#ifndef ZELMORA_CONFIG_TRANSLATION_H
#define ZELMORA_CONFIG_TRANSLATION_H

class QTranslator;
class ZMConfiguration;

/// Loads the catalogue that @p settings name: "zelmora.language.basedir" directly followed by
/// "zelmora.language.file", or by "/zelmora_" and the name of the system's locale when the file is "/". Without a
/// readable one, texts stay as they are.
void loadTranslation(QTranslator& translator, const ZMConfiguration& settings);

#endif
