#include "records/products.h"

namespace zr {

ProductOption& ProductOptions::AddOption(std::string_view id, std::string_view description,
                                         zreOptionType type) {
    return add(id, std::make_unique<ProductOption>(id, description, type));
}

Product& Products::AddProduct(std::string_view id, bool available, zreProductType type,
                              bool individual) {
    return add(id, std::make_unique<Product>(id, available, type, individual));
}

}  // namespace zr
