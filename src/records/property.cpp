#include "zrcreditbureau/property.h"

#include "platform/secret.h"

namespace zr {

SecretText& SecretText::operator=(std::string_view text) {
    return *this = std::string(text);  // may be a part of the text that is overwritten
}

SecretText& SecretText::operator=(std::string&& text) {
    wipe(*this);
    swap(text);
    wipe(text);
    return *this;
}

SecretText::~SecretText() { wipe(*this); }

}  // namespace zr
