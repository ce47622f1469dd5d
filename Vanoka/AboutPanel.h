#pragma once

#include "AttributedText.h"
#include "WindowToolkit.h"

#include <string>
#include <string_view>

/// The about panel: the platform's standard one, with the product's names and short credits.
namespace vanoka::AboutPanel {

/// "Write Sinhala with English letters", in Sinhala, with the joiner U+200D where the spelling has it.
extern const std::string_view tagline;

/// The product's names, Latin and Sinhala.
std::string applicationName();

/// Two centred lines: the tagline, and the links to the product's pages.
AttributedText credits();

/// Brings the application to the front and opens the panel; a panel that is open already comes to the front.
void show(WindowToolkit& toolkit = WindowToolkit::standard());

} // namespace vanoka::AboutPanel
