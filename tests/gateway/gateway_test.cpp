// The gateway as an object: starting, stopping, files.
#include "bureau_gateway/gateway.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "bureau_gateway/files.h"

namespace zr::gateway {
namespace {

std::string text_of(const std::filesystem::path& file) {
    std::stringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

TEST(Gateway, ListensWithACertificateOfItsOwn) {
    std::filesystem::path file;
    {
        Gateway first;
        Gateway second;
        file = first.certificate_file();
        EXPECT_TRUE(first.address().starts_with("https://127.0.0.1:"));
        EXPECT_NE(first.address(), second.address());
        EXPECT_TRUE(text_of(file).starts_with("-----BEGIN CERTIFICATE-----"));
        EXPECT_EQ(text_of(file).find("PRIVATE"), std::string::npos);
        EXPECT_NE(text_of(file), text_of(second.certificate_file()));
        EXPECT_EQ(first.counts().connections, 0u);
        first.stop();
        first.stop();
    }
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(Gateway, RefusesToStartWithOneClearSentence) {
    const auto message = [](const Settings& settings) -> std::string {
        try {
            const Gateway gateway(settings);
        } catch (const std::exception& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(message({.host = "0.0.0.0"}),
              "The host must be a loopback address, such as 127.0.0.1.");
    EXPECT_EQ(message({.host = "example.invalid"}),
              "The host must be a loopback address, such as 127.0.0.1.");
    EXPECT_EQ(message({.log_file = "/nonexistent/log"}),
              "The log '/nonexistent/log' cannot be written.");
    EXPECT_EQ(message({.certificate_file = "/nonexistent/ca.pem"}),
              "The file '/nonexistent/ca.pem' cannot be written.");
    EXPECT_EQ(message({.replies_folder = "/nonexistent"}),
              "The folder '/nonexistent' is not there.");
    EXPECT_EQ(message({.data_folder = "/nonexistent"}),
              "The document '/nonexistent/replies/words.xml' cannot be read.");
    const Gateway other;
    const std::string port = other.address().substr(other.address().rfind(':') + 1);
    EXPECT_EQ(message({.port = static_cast<unsigned short>(std::stoi(port))}),
              "Port " + port + " cannot be listened at: Address already in use.");
    Gateway gateway;
    EXPECT_THROW(gateway.set_faults({std::string("nonsense")}), std::invalid_argument);
}

}  // namespace
}  // namespace zr::gateway
