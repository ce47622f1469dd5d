#pragma once

/// All of the core library: Sinhala from Latin keys, the keys' settings, word lists, and words from strokes.
#include "product/VanokaCompany.h"
#include "product/VanokaProduct.h"
#include "product/VanokaWebsite.h"
#include "settings/SinglishCustomization.h"
#include "settings/SinglishSettings.h"
#include "settings/UserDefaults.h"
#include "singlish/SinglishComposer.h"
#include "singlish/SinglishScheme.h"
#include "singlish/SinglishStream.h"
#include "singlish/SinglishTransliterator.h"
#include "swipe/SwipeDecoder.h"
#include "words/EmojiWords.h"
#include "words/EnglishWordList.h"
#include "words/SinhalaSpelling.h"
#include "words/SinhalaWordList.h"
#include "words/WordCount.h"
