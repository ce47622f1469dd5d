#pragma once

#include "singlish/SinglishToken.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vanoka {

/// Keys as an automaton: one node for every beginning of a key, reached over the bytes of the key's canonical
/// composition. So canonically equivalent spellings reach the same node, whole characters are stepped over
/// in one call, and nothing is allocated while ASCII is looked up.
class KeyTrie {
public:
    using Node = std::uint32_t;
    static constexpr Node root = 0;
    static constexpr Node none = ~Node{0};

    KeyTrie();

    /// Lets `key` type `token`. Takes time in proportion to the key's length.
    void insert(std::string_view key, const SinglishToken& token);

    /// The node of the beginning that goes on from `node` with `character`, one character; `none` when no key
    /// goes on so.
    Node step(Node node, std::string_view character) const {
        return character.size() == 1 ? stepByte(node, character.front()) : stepScalars(node, character);
    }

    /// What the key that ends at `node` types; null when no key ends there.
    const SinglishToken* token(Node node) const noexcept {
        return nodes_[node].token == noToken ? nullptr : &tokens_[nodes_[node].token];
    }

    /// True when longer keys go on from `node`.
    bool goesOn(Node node) const noexcept { return nodes_[node].firstChild != none; }

private:
    static constexpr std::uint32_t noToken = ~std::uint32_t{0};

    struct Beginning {
        std::uint32_t token = noToken;
        Node firstChild = none;
        Node nextSibling = none;
        char byte = 0;
    };

    // Here, so that it is compiled into the loops over keys.
    Node stepByte(Node node, char byte) const noexcept {
        if (node == root)
            return fromRoot_[static_cast<unsigned char>(byte)];
        Node child = nodes_[node].firstChild;
        while (child != none && nodes_[child].byte != byte)
            child = nodes_[child].nextSibling;
        return child;
    }
    Node stepScalars(Node node, std::string_view character) const;
    Node stepOrGrow(Node node, char byte);

    std::vector<Beginning> nodes_;
    std::vector<SinglishToken> tokens_;
    std::array<Node, 256> fromRoot_; // the root has too many children for a walk along siblings
};

} // namespace vanoka
