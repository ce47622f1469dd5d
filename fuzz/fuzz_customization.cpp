#include "Fuzz.h"
#include "settings/CustomizationJson.h"
#include "settings/SinglishSettings.h"

using namespace vanoka;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string document(reinterpret_cast<const char*>(data), size);
    const auto decoded = CustomizationJson::decode(document);
    if (decoded)
        fuzz::expect(CustomizationJson::decode(CustomizationJson::encode(*decoded).value_or("")) == decoded,
                     "what is stored is read back equal");

    MemoryUserDefaults defaults;
    defaults.setData(SinglishSettings::storedName, document);
    SinglishSettings settings(defaults);
    fuzz::expect(settings.customization() == decoded.value_or(SinglishCustomization()),
                 "settings hold what decodes");
    for (const auto& letter : SinglishScheme::letters())
        settings.isCustomized(letter);
    for (const auto& row : SinglishScheme::soundsLike())
        settings.longPressLettersFor({&row.latin, 1});
    for (const auto& added : settings.customization().addedKeys)
        settings.longPressLettersFor(added.key);
    settings.transliterator().transliterate("amma kya zqa EE");
    settings.reloadIfChanged();
    fuzz::expect(defaults.data(SinglishSettings::storedName) == document, "reading stores nothing");
    return 0;
}
