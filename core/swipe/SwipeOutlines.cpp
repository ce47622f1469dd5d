#include "swipe/SwipeOutlines.h"

namespace vanoka {

SwipeOutlines::SwipeOutlines(const Shared<SwipeLexicon>& lexicon, const SwipeLayout& layout)
    : lexicon_(lexicon), layout_(layout) {
    outlines_.reserve(lexicon_->size());
    for (SwipeLexicon::Index index = 0; index < lexicon_->size(); ++index) {
        const SwipeLexicon::Entry entry = lexicon_->entry(index);
        const SwipeOutline full(entry.full, layout);
        outlines_.push_back({full, entry.chat.empty() ? full : SwipeOutline(entry.chat, layout)});
    }
}

} // namespace vanoka
