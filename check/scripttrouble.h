#ifndef ZELMORA_CHECK_SCRIPTTROUBLE_H
#define ZELMORA_CHECK_SCRIPTTROUBLE_H

#include <QHash>
#include <QStringView>

namespace check {

/// What a script cannot hold, or changes.
enum class Trouble {
    None,
    Quote, ///< ends the register's text
    Control,
    Unprintable, ///< the script's encoding lacks it
    RegistersWord, ///< "TOTALE" begins here
};

/// The characters, in UTF-16 units, that a trouble takes in @p text from @p index on.
int sizeOf(Trouble trouble, QStringView text, int index);
/// The character at @p index of @p text; half a one where the other half is not there.
uint codePointAt(QStringView text, int index);

/// Finds trouble in texts for a script in the locale's encoding.
class TroubleFinder {
public:
    TroubleFinder();

    /// Whether @p unit makes no trouble wherever it stands; nearly all do not.
    static bool isHarmless(QChar unit)
    {
        const ushort code = unit.unicode();
        return code >= 0x20 && code < 0x7F && code != u'\'' && code != u'T';
    }
    /// That of the character at @p index of @p text; None for the second half of one.
    Trouble at(QStringView text, int index) const;
    /// Whether the script's encoding has the character.
    bool canPrint(uint codePoint) const;

private:
    bool hasAll; ///< of Unicode
    mutable QHash<uint, bool> known; ///< of those that were asked for lately
};

} // namespace check

#endif
