#pragma once

#include "PersonalWords.h"
#include "words/EmojiWords.h"
#include "words/EnglishWordList.h"
#include "words/SinhalaWordList.h"

struct vanoka_words {
    vanoka::SinhalaWordList list;
};

struct vanoka_english {
    vanoka::EnglishWordList list;
};

struct vanoka_emoji {
    vanoka::EmojiWords list;
};

struct vanoka_personal {
    vanoka::PersonalWords words;
};
