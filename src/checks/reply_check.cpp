#include "checks/reply_check.h"

#include <utility>

#include "checks/reply_watch.h"

namespace zr {

ReplyCheck::ReplyCheck(const Translator& translator, Depth depth)
    : watch_(std::make_unique<Watch>(depth)), translator_(translator.definition(), watch_.get()) {
    watch_->set_translator(translator_);
}

ReplyCheck::~ReplyCheck() = default;

ReplyCheck::Watching::Watching(const ReplyCheck& check, ReplyService& service)
    : check_(check), service_(service) {
    service_.read_with(&check.translator_);
}

ReplyCheck::Watching::~Watching() {
    service_.read_with(nullptr);
    check_.watch_->leave();
}

std::vector<Finding> ReplyCheck::take_findings() { return std::exchange(watch_->findings, {}); }

Explanation ReplyCheck::take_explanation() { return std::exchange(watch_->explanation, {}); }

}  // namespace zr
