#include "services/vedaxml_nz/reply_paths.h"

namespace zr::new_zealand {

ReplyPaths::ReplyPaths() : checks(names), search(names) {}

const ReplyPaths& reply_paths() {
    static const ReplyPaths paths;
    return paths;
}

}  // namespace zr::new_zealand
