#include "ShippedLists.h"

#include <fstream>
#include <iterator>
#include <string>

namespace vanoka::bench {

namespace {

std::string contentsOf(const char* name) {
    std::ifstream file(std::string(VANOKA_DATA) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

const SuggestionListTexts& shippedTexts() {
    static const SuggestionListTexts texts = {contentsOf("si.tsv"), contentsOf("en.tsv"),
                                              contentsOf("emoji.tsv"), contentsOf("never-offered.txt")};
    return texts;
}

} // namespace vanoka::bench
