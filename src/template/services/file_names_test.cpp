// SPDX-License-Identifier: MIT
#include "template/model/declara_zorvane.h"
#include "template/services/file_names.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

struct Parts {
    std::string folder;
    std::string stem;
    std::string extension;
    bool hasExtension;
    friend bool operator==(const Parts&, const Parts&) = default;
};

Parts partsOf(std::string_view path) {
    const Document_Name name = documentName(path);
    return {name.folder, name.stem, name.extension, name.hasExtension};
}

TEST(FileNames, ADocumentsNameIsCutAtItsFirstDot) {
    EXPECT_EQ(partsOf("/home/site7.abc"), (Parts{"/home/", "SITE7", "ABC", true}));
    EXPECT_EQ(partsOf("/home/abc.def.KVRT207D"), (Parts{"/home/", "ABC", "DEF.KVRT207D", true}));
    EXPECT_EQ(partsOf("/a.b/ta\xF1o .abc "), (Parts{"/a.b/", "TA\xD1O", "ABC", true}));
    EXPECT_EQ(partsOf("site7."), (Parts{"", "SITE7", "", true}));
}

TEST(FileNames, ANameWithoutADotPastItsFirstCharacterStaysAsSpelt) {
    EXPECT_EQ(partsOf("/home/Plain"), (Parts{"/home/", "Plain", "", false}));
    EXPECT_EQ(partsOf("/home/.Abc"), (Parts{"/home/", ".Abc", "", false}));
    EXPECT_EQ(partsOf("/home/.Abc.def"), (Parts{"/home/", ".Abc.def", "", false}));
    EXPECT_EQ(partsOf(""), (Parts{"", "", "", false}));
}

Declara_Zorvane named(const std::string& path) {
    Declara_Zorvane document;
    takeName(document, path);
    return document;
}

TEST(TakenName, IsCutAtItsFirstDotInUpperCase) {
    const Declara_Zorvane document = named("/sites/abc.def.KVRT207d");
    EXPECT_EQ(document.File_Folder, "/sites/");
    EXPECT_EQ(document.File_Stem, "ABC");
    EXPECT_EQ(document.File_Extension, "DEF.KVRT207D");
}

TEST(TakenName, WithoutAFolderHasNone) {
    EXPECT_EQ(named("site7.ABC").File_Folder, "");
    EXPECT_EQ(named("site7.ABC").File_Stem, "SITE7");
}

TEST(TakenName, WithADotInFirstPlaceOrNoneStaysWhole) {
    EXPECT_EQ(named("/a/.Abc").File_Stem, ".Abc");
    EXPECT_EQ(named("/a/.Abc").File_Extension, "");
    EXPECT_EQ(named("/a/Plain").File_Stem, "Plain");
}

TEST(TakenName, WithoutAnExtensionLeavesTheExtensionAndIsAPlace) {
    Declara_Zorvane document = named("/a/site.ABC");
    document.No_Place = true;
    takeName(document, "/b/plain");
    EXPECT_EQ(document.File_Folder, "/b/");
    EXPECT_EQ(document.File_Stem, "plain");
    EXPECT_EQ(document.File_Extension, "ABC");
    EXPECT_FALSE(document.No_Place);
}

TEST(FileNames, NoPathNamesATemplateOutsideTheApplicationFolder) {
    EXPECT_EQ(templateName("/tmp/x.../../etc/passwd"), "/ETC/PASSWD.ZTP");
    EXPECT_EQ(templateName("x.../../../../etc/passwd"), "/ETC/PASSWD.ZTP");
    EXPECT_EQ(templateName("/tmp/site.../"), "/.ZTP");
    EXPECT_EQ(templateName("/tmp/site.."), ".ZTP");
    EXPECT_EQ(partsOf("/tmp/x.../../etc/passwd"), (Parts{"/tmp/x.../../etc/", "passwd", "", false}));
    EXPECT_EQ(partsOf("/tmp/x..\\..\\etc"), (Parts{"/tmp/", "X", ".\\..\\ETC", true}));
}

TEST(FileNames, APathIsCutBeforeItsName) {
    EXPECT_EQ(splitPath("/a.b/c.d").folder, "/a.b/");
    EXPECT_EQ(splitPath("/a.b/c.d").name, "c.d");
    EXPECT_EQ(splitPath("c.d").folder, "");
    EXPECT_EQ(splitPath("c.d").name, "c.d");
    EXPECT_EQ(splitPath("/a/").name, "");
}

TEST(FileNames, TheLastExtensionNamesTheTemplate) {
    EXPECT_EQ(templateName("/home/abc.def.kvrt207d "), "KVRT207D.ZTP");
    EXPECT_EQ(templateName("/home/.abc"), "ABC.ZTP");
    EXPECT_EQ(templateName("/home/site7."), ".ZTP");
    EXPECT_EQ(templateName("/home/plain"), "/HOME/PLAIN.ZTP") << "without a dot the whole path is taken";
    EXPECT_EQ(lastExtension("/a.b/plain"), "B/PLAIN");
}

TEST(FileNames, SplitsTheNamesOfAFolder) {
    EXPECT_EQ(splitName("kvrt.ztp"), std::pair(std::string("kvrt"), std::string("ZTP")));
    EXPECT_EQ(splitName("a.b.ztp "), std::pair(std::string("a"), std::string("B.ZTP")));
    EXPECT_EQ(splitName(".ztp"), std::pair(std::string(), std::string()));
    EXPECT_EQ(splitName("plain"), std::pair(std::string(), std::string()));
    EXPECT_EQ(splitName(".."), std::pair(std::string(), std::string()));
}

TEST(FileNames, ATemplateAddsItsTypeToTheFilter) {
    EXPECT_EQ(filterItem("kvrt"), "kvrt Configuration (*.kvrt)|*.kvrt|");
}

} // namespace
} // namespace zorvane
