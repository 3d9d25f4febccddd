#include "exchanges/answer.h"

#include <algorithm>

namespace vintrel::exchanges {

bool Answer::Collect(platform::Transfer& transfer) {
    known_ = text_.size();
    transfer.Receive(text_, kLimit + 1 - text_.size());
    if (text_.size() > kLimit) return false;
    const platform::TransferState state = transfer.State();
    whole_ = state == platform::TransferState::Finished;
    return !whole_ && state != platform::TransferState::Failed;
}

bool Answer::Brought(std::string_view text) const {
    const std::size_t overlap = std::min(known_, text.size() - 1);
    return text_.find(text, known_ - overlap) != std::string::npos;
}

}  // namespace vintrel::exchanges
