#ifndef ZELMORA_PAPER_PALETTE_H
#define ZELMORA_PAPER_PALETTE_H

#include "paper/roll.h"

/// How drawings for the eye look, whatever draws them. Colours as SVG writes them.
namespace paper {

constexpr char groundColour[] = "#c8c8c8";
constexpr char paperColour[] = "#ffffff";
constexpr char inkColour[] = "#000000";
constexpr char barColour[] = "#b06000";

constexpr const char* colourOf(Mark mark)
{
    return mark == Mark::Changed ? "#fff0a0" : "#ffc8c8";
}

// In units.
constexpr int fontSize = 16;
constexpr int baseline = 15; ///< below the top of a cell

} // namespace paper

#endif
