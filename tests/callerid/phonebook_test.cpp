#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "callerid/friends_file.h"
#include "callerid/phonebook_dictionary.h"
#include "core/instance.h"
#include "support/fake_phone.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace callerid {
namespace {

using support::person;
using testing::Contains;
using testing::ElementsAre;

class PhonebookTest : public testing::Test {
  protected:
    PhonebookTest() {
        instance_.attach(host_, &host_);
        instance_.log.attach(&host_);
        host_.install_phone(&phone_);
        instance_.settings.useHSPPhoneBook = true;
        instance_.settings.useFriends = true;
        instance_.settings.FriendsLocation = "C:\\Book\\";
    }

    void friends(const std::string& text) { machine_.files.put("C:\\Book\\Friends.txt", text); }

    std::string caller(const std::string& number, const std::string& name = "") {
        return book_.HSPAddressBookLookup(number, name);
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    support::FakePhone phone_;
    core::Instance instance_{machine_.platform()};
    PhonebookDictionary book_{instance_};
};

TEST_F(PhonebookTest, PeopleWhoShareANumberAreJoined) {
    phone_.book = {person("Anna", "Smith", {.home = "503 555-1234", .cell = "5550001"}),
                   person("Ben", "Smith", {.home = "(503)5551234", .work = "5550002"}),
                   person("Carl", "Jones", {.home = "5035551234"})};
    book_.BuildPhonebook();
    EXPECT_EQ(caller("5035551234"), "(503) 555-1234 : Anna or Ben Smith or Carl Jones from home");
    EXPECT_EQ(caller("555-0001"), "555-0001 : Anna Smith from cell");
    EXPECT_EQ(caller("5550002"), "555-0002 : Ben Smith from work");
    instance_.settings.ExcludeHSPLocation = true;
    book_.BuildPhonebook();
    EXPECT_EQ(caller("5550002"), "555-0002 : Ben Smith");
}

TEST_F(PhonebookTest, TheAddOnGoesBeforeTheFriends) {
    phone_.book = {person("Anna", "Smith", {.home = "5551234"}, "anna.wav")};
    friends("; people\r\n555-1234\tBob\r\n(555) 9999\t \tR&D Lab\t\tlab.wav\tmore\r\n");
    book_.BuildPhonebook();
    EXPECT_EQ(caller("5551234"), "555-1234 : Anna Smith from home");
    EXPECT_EQ(book_.CallerWav(), "anna.wav");
    EXPECT_EQ(caller("5559999"), "555-9999 : RandD Lab");
    EXPECT_EQ(book_.CallerWav(), "C:\\Book\\lab.wav");
    EXPECT_EQ(caller("1"), "1 : Unknown");
    EXPECT_EQ(book_.CallerWav(), "");
}

TEST_F(PhonebookTest, AnUnknownNumberShowsTheGivenName) {
    for (const auto& [name, shown] : {std::pair{"Zoe", "Zoe"}, std::pair{"O", "Unknown"},
                                      std::pair{"P", "P"}, std::pair{"", "Unknown"}}) {
        EXPECT_EQ(caller("5551234", name), std::string("555-1234 : ") + shown);
    }
}

TEST_F(PhonebookTest, AMissingAddOnIsLoggedAndFriendsStillCount) {
    host_.install_phone(nullptr);
    instance_.settings.CIDLineNumber = 2;
    friends("5551234\tBob\n");
    book_.BuildPhonebook();
    EXPECT_EQ(caller("5551234"), "555-1234 : Bob");
    EXPECT_EQ(instance_.settings.CIDLineNumber, 0);
    EXPECT_THAT(host_.log(), ElementsAre("zynVelora: Unable to Create hsp Object ,#=429"));
}

TEST_F(PhonebookTest, AMalformedLineIsNamedAndTheRestLoads) {
    instance_.log.set_debug_log(true);
    friends("5550001\tBob\r\nno tab here\r\n\r\n5550002\tCarol");
    book_.BuildPhonebook();
    EXPECT_THAT(host_.log(), Contains("zynVelora Debug: C:\\Book\\Friends.txt, line 2: no name "
                                      "behind a tab, passed over"));
    EXPECT_EQ(caller("5550001"), "555-0001 : Bob");
    EXPECT_EQ(caller("5550002"), "555-0002 : Carol");
}

TEST(FriendsFile, LinesHoldNumberNameAndSound) {
    struct Case {
        const char* line;
        const char* fields;  // "" for no friend
    };

    for (const Case& c : {
             Case{"5551234\tBob", "5551234|Bob|"},
             Case{"5551234\t\tBob\tbob.wav", "5551234|Bob|bob.wav"},
             Case{" 5551234 \t Bob \t \t a.wav \tb.wav", " 5551234 |Bob|a.wav"},
             Case{";5551234\tBob", ""},
             Case{"5551234", ""},
             Case{"5551234\t \t", ""},
             Case{"", ""},
         }) {
        const auto found = parse_friend(c.line);
        EXPECT_EQ(found ? found->number + "|" + found->name + "|" + found->wav : "", c.fields)
            << c.line;
    }
}

TEST_F(PhonebookTest, ASoundWithAWholePathStaysAsItIs) {
    friends("1\tA\tD:\\x.wav\n2\tB\t\\\\server\\x.wav\n3\tC\tsub\\x.wav\n");
    book_.BuildPhonebook();
    for (const auto& [number, wav] :
         {std::pair{"1", "D:\\x.wav"}, std::pair{"2", "\\\\server\\x.wav"},
          std::pair{"3", "C:\\Book\\sub\\x.wav"}}) {
        caller(number);
        EXPECT_EQ(book_.CallerWav(), wav);
    }
}

}  // namespace
}  // namespace callerid
