#include "app/page_recovery.h"

namespace ravelin {

Recovery PageRecovery::judge(EngineProcess ended, std::uint64_t now) {
    if (ended == EngineProcess::browser) return Recovery::giveUp;
    if (ended != EngineProcess::mainPage) return Recovery::none;
    std::uint64_t& oldest = shownAgain_[count_ % mostTimes];
    if (count_ >= mostTimes && now - oldest < within) return Recovery::giveUp;
    oldest = now;
    ++count_;
    return Recovery::showPageAgain;
}

}  // namespace ravelin
