// The registry and the XML document as this system has them.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "adapters/com/machine_registry.h"
#include "adapters/com/msxml_document.h"
#include "adapters/com/wide_text.h"

namespace kelvane::com {
namespace {

using Outcome = platform::Registry::Outcome;

constexpr const wchar_t* kKey = L"SOFTWARE\\Kelvane tests";

class MachineRegistryTest : public testing::Test {
protected:
    MachineRegistryTest() {
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, kKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &mKey,
                        nullptr);
        Write(L"Toolbar Style", REG_SZ, L"True 样式");
        Write(L"Number", REG_DWORD, L"x");
        Write(L"Long", REG_SZ, std::wstring(200, L'x'));
    }
    ~MachineRegistryTest() override {
        RegCloseKey(mKey);
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, kKey);
    }
    void Write(const wchar_t* name, DWORD type, const std::wstring& text) {
        RegSetValueExW(mKey, name, 0, type, reinterpret_cast<const BYTE*>(text.c_str()),
                       type == REG_DWORD ? 4 : static_cast<DWORD>((text.size() + 1) * 2));
    }
    platform::Registry::Answer Read(const char* name, const char* key = "SOFTWARE\\Kelvane tests") {
        return MachineRegistry().ReadMachineText(key, name, 128);
    }

private:
    HKEY mKey = nullptr;
};

TEST_F(MachineRegistryTest, ReadsTextsThatFit) {
    const auto answer = Read("Toolbar Style");
    EXPECT_EQ(answer.outcome, Outcome::Found);
    EXPECT_EQ(answer.text, "True 样式");
}

TEST_F(MachineRegistryTest, KnowsWhatIsMissing) {
    EXPECT_EQ(Read("Toolbar Style", "SOFTWARE\\No such key").outcome, Outcome::NoKey);
    EXPECT_EQ(Read("Other").outcome, Outcome::NoValue);
    EXPECT_EQ(Read("Number").outcome, Outcome::NoValue);
    EXPECT_EQ(Read("Long").outcome, Outcome::NoValue);
}

class MsxmlDocumentTest : public testing::Test {
protected:
    std::string Saved() {
        std::ifstream file(mPath);
        std::stringstream content;
        content << file.rdbuf();
        return content.str();
    }
    std::string Path() const { return NarrowText(mPath.wstring()); }
    ~MsxmlDocumentTest() override { std::filesystem::remove(mPath); }

private:
    std::filesystem::path mPath = std::filesystem::temp_directory_path() / L"格式.xml";
};

TEST_F(MsxmlDocumentTest, WritesWhatItLoaded) {
    MsxmlDocument document;
    EXPECT_TRUE(document.LoadXml("<格式><a b=\"1\"/></格式>"));
    document.Save(Path());
    MsxmlDocument again;
    EXPECT_TRUE(again.LoadXml(Saved()));
    EXPECT_NE(Saved().find("<格式>"), std::string::npos);
}

TEST_F(MsxmlDocumentTest, SaysWhatDoesNotParse) {
    EXPECT_FALSE(MsxmlDocument().LoadXml("<a><b></a>"));
}

TEST_F(MsxmlDocumentTest, NamesTheFileThatCannotBeWritten) {
    MsxmlDocument document;
    document.LoadXml("<a/>");
    try {
        document.Save("C:\\no such folder\\x.xml");
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("C:\\no such folder\\x.xml"), std::string::npos);
    }
}

}  // namespace
}  // namespace kelvane::com
