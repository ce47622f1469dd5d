#include <VanokaCore.h>
#include <iostream>

/// A keyboard with a memory of its own for what the user changes.
vanoka::UserDefaults& vanoka::UserDefaults::standard() {
    static MemoryUserDefaults defaults;
    return defaults;
}

int main(int count, char** arguments) {
    vanoka::SinglishSettings::shared().add("zz", "\u0DC5");
    vanoka::SinglishComposer composer(vanoka::SinglishSettings::shared().transliterator());
    for (int i = 1; i < count; ++i)
        composer.insert(arguments[i]);
    std::cout << composer.commit() << '\n';
}
