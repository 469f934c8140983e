// Charsets by iconv, which is named here only.
#include "platform/charset.h"

#include <iconv.h>

#include <array>
#include <cerrno>

namespace zr {
namespace {

constexpr auto kFailed = static_cast<std::size_t>(-1);

class IconvDecoder : public CharsetDecoder {
  public:
    explicit IconvDecoder(iconv_t handle) : handle_(handle) {}
    ~IconvDecoder() override { iconv_close(handle_); }

    bool decode(std::string_view& input, std::string& target) override {
        char* from = const_cast<char*>(input.data());  // iconv does not write to it
        std::size_t left = input.size();
        while (true) {
            const bool flushing = left == 0;
            char* to = buffer_.data();
            std::size_t room = buffer_.size();
            const std::size_t result =
                iconv(handle_, flushing ? nullptr : &from, flushing ? nullptr : &left, &to, &room);
            const bool failed = result == kFailed && errno != E2BIG;
            const bool full = result == kFailed && !failed;
            target.append(buffer_.data(), buffer_.size() - room);
            if (failed || (flushing && !full)) {
                input = left != 0 ? std::string_view(from, left) : std::string_view();
                return !failed;
            }
        }
    }

  private:
    iconv_t handle_;
    std::array<char, 4096> buffer_;
};

}  // namespace

std::unique_ptr<CharsetDecoder> open_charset(const std::string& name) {
    const iconv_t handle = iconv_open("UTF-8", name.c_str());
    if (handle == reinterpret_cast<iconv_t>(kFailed)) return nullptr;  // NOLINT
    return std::make_unique<IconvDecoder>(handle);
}

}  // namespace zr
