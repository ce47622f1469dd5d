#include "singlish/KeyTrie.h"

#include "text/Equivalence.h"

namespace vanoka {

KeyTrie::KeyTrie() : nodes_{Beginning{}} {
    fromRoot_.fill(none);
}

void KeyTrie::insert(std::string_view key, const SinglishToken& token) {
    Node node = root;
    for (const char byte : text::nfc(key))
        node = stepOrGrow(node, byte);
    nodes_[node].token = static_cast<std::uint32_t>(tokens_.size());
    tokens_.push_back(token);
}

KeyTrie::Node KeyTrie::stepScalars(Node node, std::string_view character) const {
    for (const char byte : text::nfc(character)) {
        node = stepByte(node, byte);
        if (node == none)
            break;
    }
    return node;
}

KeyTrie::Node KeyTrie::stepOrGrow(Node node, char byte) {
    if (const Node known = stepByte(node, byte); known != none)
        return known;
    const auto grown = static_cast<Node>(nodes_.size());
    nodes_.push_back({.nextSibling = nodes_[node].firstChild, .byte = byte});
    nodes_[node].firstChild = grown;
    if (node == root)
        fromRoot_[static_cast<unsigned char>(byte)] = grown;
    return grown;
}

} // namespace vanoka
