#include "vbscript/objects/files/file_system_object.h"

#include "vbscript/objects/object_test.h"
#include "vbscript/objects/temporary_folder.h"

namespace vbscript {
namespace {

class FileSystem : public ObjectTest {
  protected:
    FileSystem() {
        object = make<FileSystemObject>(std::make_shared<const Disk>(home.path()), nullptr);
    }

    struct Step {
        std::u16string_view member;
        std::vector<std::u16string_view> arguments;
        std::string_view expected;
    };

    void expect(const std::vector<Step>& steps) {
        for (const Step& step : steps) {
            std::vector<Value> values;
            std::string told = to_utf8(step.member);
            for (const std::u16string_view argument : step.arguments) {
                values.emplace_back(argument);
                told += " " + to_utf8(argument);
            }
            EXPECT_EQ(result(step.member, values), step.expected) << told;
        }
    }

    [[nodiscard]] Ref<Object> made(std::u16string_view member, std::u16string_view name) {
        return object_of(call(member, {Value(name)}));
    }

    [[nodiscard]] std::string member_of(const Ref<Object>& entry, std::u16string_view name,
                                        std::vector<Value> arguments = {},
                                        Access access = Access::Call) {
        return noted_result(
            context, [&] { return vbscript::call(context, entry, name, arguments, access); });
    }

    // "a.txt b.txt" of a collection.
    [[nodiscard]] std::string names(const Ref<Object>& collection) {
        std::string list;
        const auto walk = collection->enumerate(context);
        while (const auto entry = walk->next()) {
            list += (list.empty() ? "" : " ") + member_of(object_of(*entry), u"Name");
        }
        return list;
    }

    TemporaryFolder home;
};

TEST_F(FileSystem, NamesAreFoundWithEitherSlashAndInAnyCase) {
    home.write("Data/Sub/Read Me.TXT", "x");
    home.write("exact", "1");
    home.write("EXACT", "2");
    expect({
        {u"FileExists", {u"data\\SUB\\read me.txt"}, "True"},
        {u"FileExists", {u"data/sub/../sub/read me.txt"}, "True"},
        {u"FolderExists", {u"DATA\\sub\\"}, "True"},
        {u"FileExists", {u"data\\sub"}, "False"},
        {u"FolderExists", {u"data\\sub\\read me.txt"}, "False"},
        {u"FileExists", {u"c:\\data\\sub\\read me.txt"}, "False"},
        {u"FileExists", {u""}, "False"},
        {u"GetFile", {u"data\\none"}, "error 53"},
        {u"GetFolder", {u"none"}, "error 76"},
        {u"GetFolder", {u"exact"}, "error 76"},
    });
    EXPECT_EQ(member_of(made(u"GetFile", u"data\\sub\\read me.txt"), u"Name"), "Read Me.TXT");
    EXPECT_EQ(member_of(object_of(vbscript::call(context, made(u"GetFile", u"EXACT"),
                                                 u"OpenAsTextStream")),
                        u"ReadAll"),
              "2");
}

TEST_F(FileSystem, FoldersAreMadeListedAndCounted) {
    home.write("b.txt", "12345");
    home.write("A.txt", "1");
    home.write("sub/inner/c.txt", "123");
    expect({
        {u"CreateFolder", {u"new"}, "Folder"},
        {u"CreateFolder", {u"NEW"}, "error 58"},
        {u"CreateFolder", {u"none\\new"}, "error 76"},
        {u"CreateFolder", {u"a*b"}, "error 52"},
        {u"CreateFolder", {u"b.txt"}, "error 58"},
    });
    const Ref<Object> folder = made(u"GetFolder", u".");
    const Ref<Object> files = object_of(vbscript::call(context, folder, u"Files"));
    const Ref<Object> folders = object_of(vbscript::call(context, folder, u"SubFolders"));
    EXPECT_EQ(names(files), "A.txt b.txt");
    EXPECT_EQ(names(folders), "new sub");
    EXPECT_EQ(member_of(files, u"Count"), "2");
    EXPECT_EQ(member_of(folder, u"Size"), "9");
    EXPECT_EQ(
        member_of(object_of(vbscript::call(context, files, u"Item", {Value(u"B.TXT")})), u"Size"),
        "5");
    EXPECT_EQ(member_of(files, u"Item", {Value(u"z")}), "error 53");
    EXPECT_EQ(member_of(folders, u"Item", {Value(u"z")}), "error 76");
    EXPECT_EQ(member_of(folders, u"Add", {Value(u"more")}), "Folder");
    EXPECT_EQ(member_of(folders, u"Add", {Value(u"more")}), "error 58");
    EXPECT_EQ(member_of(folder, u"Files", {Value(u"a.txt")}), "File");
    EXPECT_EQ(member_of(folder, u"IsRootFolder"), "False");
    EXPECT_EQ(member_of(made(u"GetFolder", u"\\"), u"ParentFolder"), "Nothing");
}

TEST_F(FileSystem, CopiesFollowTheTarget) {
    home.write("one.txt", "1");
    home.write("two.txt", "2");
    home.write("three.dat", "3");
    home.write("to/two.txt", "old");
    expect({
        {u"CopyFile", {u"one.txt", u"copy.txt"}, "Empty"},
        {u"CopyFile", {u"*.txt", u"to"}, "Empty"},
        {u"CopyFile", {u"three.dat", u"to\\"}, "Empty"},
        {u"CopyFile", {u"*.none", u"to"}, "error 53"},
        {u"CopyFile", {u"one.txt", u"to"}, "error 70"},
        {u"CopyFile", {u"one.txt", u"one.txt"}, "error 70"},
        {u"CopyFile", {u"one.txt", u"none\\"}, "error 76"},
        {u"CopyFile", {u"one.txt", u"copy.txt", u"False"}, "error 58"},
        {u"CopyFolder", {u"to", u"to\\itself"}, "Empty"},
        {u"CopyFolder", {u"t*", u"to"}, "Empty"},
        {u"CopyFolder", {u"none", u"x"}, "error 76"},
        {u"CopyFolder", {u"to", u"one.txt"}, "error 58"},
    });
    EXPECT_EQ(home.read("copy.txt"), "1");
    EXPECT_EQ(home.read("to/two.txt"), "2");
    EXPECT_EQ(home.read("to/three.dat"), "3");
    EXPECT_EQ(home.read("to/itself/two.txt"), "2");
    EXPECT_EQ(home.read("to/itself/itself/two.txt"), "no file");
    EXPECT_EQ(home.read("to/to/itself/two.txt"), "2");
}

TEST_F(FileSystem, MovesNeverReplace) {
    home.write("one.txt", "1");
    home.write("two.txt", "2");
    home.write("dir/x", "x");
    home.write("into/keep", "k");
    expect({
        {u"MoveFile", {u"one.txt", u"two.txt"}, "error 58"},
        {u"MoveFile", {u"one.txt", u"uno.txt"}, "Empty"},
        {u"MoveFile", {u"*.txt", u"into"}, "Empty"},
        {u"MoveFile", {u"one.txt", u"x"}, "error 53"},
        {u"MoveFolder", {u"dir", u"into\\"}, "Empty"},
        {u"MoveFolder", {u"dir", u"y"}, "error 76"},
        {u"MoveFolder", {u"into\\dir", u"into"}, "error 58"},
    });
    EXPECT_EQ(home.read("into/uno.txt") + home.read("into/two.txt") + home.read("into/dir/x"),
              "12x");
}

TEST_F(FileSystem, ReadOnlyIsDeletedByForceAlone) {
    home.write("a.txt", "1");
    home.write("dir/b.txt", "1");
    const Ref<Object> file = made(u"GetFile", u"a.txt");
    EXPECT_EQ(member_of(file, u"Attributes"), "32");
    EXPECT_EQ(member_of(file, u"Attributes", {integer(1)}, Access::Let), "Empty");
    EXPECT_EQ(member_of(file, u"Attributes"), "33");
    EXPECT_EQ(member_of(file, u"Attributes", {integer(64)}, Access::Let), "error 5");
    const Ref<Object> inner = made(u"GetFile", u"dir\\b.txt");
    EXPECT_EQ(member_of(inner, u"Attributes", {integer(1)}, Access::Let), "Empty");
    expect({
        {u"CopyFile", {u"dir\\b.txt", u"a.txt"}, "error 70"},
        {u"DeleteFile", {u"*.txt"}, "error 70"},
        {u"DeleteFile", {u"*.txt", u"True"}, "Empty"},
        {u"DeleteFile", {u"a.txt"}, "error 53"},
        {u"DeleteFolder", {u"dir"}, "error 70"},
        {u"DeleteFolder", {u"dir", u"True"}, "Empty"},
        {u"DeleteFolder", {u"dir"}, "error 76"},
    });
}

TEST_F(FileSystem, EntriesTellAboutThemselvesAndMove) {
    home.write("dir/a.htm", "12");
    std::filesystem::last_write_time(home.path() / "dir/a.htm",
                                     std::filesystem::file_time_type::clock::now());
    const Ref<Object> file = made(u"GetFile", u"dir\\a.htm");
    EXPECT_EQ(member_of(file, u"Type"), "HTM File");
    EXPECT_EQ(noted(context.plain(Value(file))), member_of(file, u"Path"));
    EXPECT_TRUE(member_of(file, u"Path").ends_with("\\dir\\a.htm"));
    EXPECT_EQ(member_of(file, u"Drive"), "Drive");
    EXPECT_EQ(vbscript::call(context, file, u"DateLastModified").type(), Type::Date);
    const Ref<Object> parent = object_of(vbscript::call(context, file, u"ParentFolder"));
    EXPECT_EQ(member_of(parent, u"Name"), "dir");
    EXPECT_EQ(member_of(file, u"Name", {Value(u"b.htm")}, Access::Let), "Empty");
    EXPECT_EQ(member_of(file, u"Name", {Value(u"..\\c.htm")}, Access::Let), "error 52");
    EXPECT_EQ(member_of(file, u"Copy", {Value(u"c.htm")}), "Empty");
    EXPECT_EQ(member_of(file, u"Move", {Value(u"d.htm")}), "Empty");
    EXPECT_EQ(member_of(file, u"Name"), "d.htm");
    EXPECT_EQ(home.read("c.htm") + home.read("d.htm") + home.read("dir/b.htm"), "1212no file");
    EXPECT_EQ(member_of(file, u"Delete"), "Empty");
    EXPECT_EQ(member_of(file, u"Size"), "error 53");
    EXPECT_EQ(member_of(parent, u"Delete"), "Empty");
    EXPECT_EQ(member_of(parent, u"Size"), "error 76");
}

TEST_F(FileSystem, OpeningFollowsModeAndCreation) {
    home.write("a.txt", "old");
    const auto open = [&](std::vector<Value> arguments) {
        return result(u"OpenTextFile", std::move(arguments));
    };
    EXPECT_EQ(open({Value(u"none")}), "error 53");
    EXPECT_EQ(open({Value(u"none\\a"), integer(2), Value(true)}), "error 76");
    EXPECT_EQ(open({Value(u"none"), integer(2)}), "error 53");
    EXPECT_EQ(open({Value(u"a.txt"), integer(3)}), "error 5");
    EXPECT_EQ(open({Value(u"a.txt"), integer(1), Value(false), integer(7)}), "error 5");
    EXPECT_EQ(open({Value(u".")}), "error 70");
    EXPECT_EQ(open({Value(u"made"), integer(1), Value(true)}), "TextStream");
    EXPECT_EQ(home.read("made"), "");
    EXPECT_EQ(result(u"CreateTextFile", {Value(u"a.txt"), Value(false)}), "error 58");
    EXPECT_EQ(home.read("a.txt"), "old");
    EXPECT_EQ(result(u"CreateTextFile", {Value(u"a.txt")}), "TextStream");
    EXPECT_EQ(home.read("a.txt"), "");
    EXPECT_EQ(member_of(made(u"GetFolder", u"."), u"CreateTextFile", {Value(u"in")}), "TextStream");
    EXPECT_EQ(home.read("in"), "");
}

TEST_F(FileSystem, TheOneDriveAndSpecialFolders) {
    expect({
        {u"DriveExists", {u"\\"}, "True"},
        {u"DriveExists", {u"c:"}, "False"},
        {u"GetDrive", {u""}, "Drive"},
        {u"GetDrive", {u"c:"}, "error 68"},
        {u"GetSpecialFolder", {u"2"}, "Folder"},
        {u"GetSpecialFolder", {u"0"}, "error 76"},
        {u"GetSpecialFolder", {u"3"}, "error 5"},
        {u"GetStandardStream", {u"1"}, "error 52"},
        {u"GetAbsolutePathName", {u"c:\\x"}, "c:\\x"},
        {u"GetFileVersion", {u"none"}, "error 53"},
    });
    EXPECT_EQ(result(u"GetAbsolutePathName", {Value(u"a/../b")}),
              to_utf8(script_name(home.path())) + "\\b");
    const Ref<Object> drives = object_of(call(u"Drives"));
    EXPECT_EQ(walked(context, drives), "[Drive]");
    const Ref<Object> drive = object_of(vbscript::call(context, drives, u"Item", {Value(u"\\")}));
    EXPECT_EQ(member_of(drive, u"IsReady"), "True");
    EXPECT_GT(vbscript::call(context, drive, u"TotalSize").real(),
              vbscript::call(context, drive, u"AvailableSpace").real());
    const std::string name = result(u"GetTempName");
    EXPECT_EQ(name.size(), 12U);
    EXPECT_TRUE(name.starts_with("rad") && name.ends_with(".tmp")) << name;
}

}  // namespace
}  // namespace vbscript
