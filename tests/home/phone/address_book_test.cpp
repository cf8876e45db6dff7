#include "home/phone/address_book.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "home/phone/telephone.h"
#include "home/temporary_folder.h"

namespace home {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string text_of(const host::AddressRecord& record) {
    return record.First + "|" + record.last + "|" + record.home_phone + "|" + record.cell_phone +
           "|" + record.business_phone + "|" + record.announce_local_wav;
}

using Reader = std::vector<host::AddressRecord> (*)(std::string_view, const BookComplaint&);

struct Read {
    std::vector<std::string> people;
    std::vector<std::string> complaints;
};

Read read(Reader reader, std::string_view text) {
    Read result;
    for (const auto& record :
         reader(text, [&](const std::string& line) { result.complaints.push_back(line); })) {
        result.people.push_back(text_of(record));
    }
    return result;
}

TEST(VCard, PeopleOfBothVersionsAreRead) {
    const Read book = read(&read_vcards,
                           "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Smith;Anna;;;\r\nFN:Anna Smith\r\n"
                           "TEL;TYPE=HOME,VOICE:503 555-1234\r\nTEL;TYPE=cell:5550001\r\n"
                           "item1.TEL;TYPE=\"work:x\":5550002\r\nX-SOUND:anna.wav\r\nEND:VCARD\r\n"
                           "begin:vcard\nVERSION:4.0\nFN:J\xC3\xBCrgen\\, van\n  der Berg\n"
                           "TEL;VALUE=uri;TYPE=\"cell,voice\":tel:+49-30-1\nend:vcard\n");
    EXPECT_THAT(book.people, ElementsAre("Anna|Smith|503 555-1234|5550001|5550002|anna.wav",
                                         "J\xFCrgen, van der|Berg||+49-30-1||"));
    EXPECT_THAT(book.complaints, IsEmpty());
}

TEST(VCard, WhatIsMalformedIsNamedByItsLineAndTheRestIsRead) {
    const Read book = read(&read_vcards,
                           "rubbish\n"
                           "BEGIN:VCARD\nN:A;B\nTEL:1\n"
                           "BEGIN:VCARD\nN:C;D\nno colon\nTEL:2\nEND:VCARD\n"
                           "BEGIN:VCARD\nN:E;F\nEND:VCARD\n"
                           "BEGIN:VCARD\n");
    EXPECT_THAT(book.people, ElementsAre("D|C|2|||"));
    EXPECT_THAT(book.complaints,
                ElementsAre("line 1: no card has begun, passed over",
                            "line 2: a card without an end, passed over",
                            "line 7: no ':' behind the property, passed over",
                            "line 10: a card without a name or a number, passed over",
                            "line 13: a card without an end, passed over"));
}

TEST(Csv, ColumnsAreFoundByTheirTitles) {
    const Read book = read(&read_csv,
                           "Last, First ,note,HOME,Work\r\n"
                           "Smith,Anna,x,\"503,555\",1\r\n"
                           "\"O\"\"Neil\",Bob,\"two\nlines\",,2\r\n"
                           "\r\n"
                           "Jones,Carl,,,\r\n"
                           "Open,Dan,,\"3");
    EXPECT_THAT(book.people, ElementsAre("Anna|Smith|503,555||1|", "Bob|O\"Neil|||2|"));
    EXPECT_THAT(book.complaints, ElementsAre("line 6: no number, passed over",
                                             "line 7: a quote that does not end, passed over"));
}

TEST(Csv, AnEmptyFileHasNoPeople) {
    EXPECT_THAT(read(&read_csv, "").people, IsEmpty());
    EXPECT_THAT(read(&read_csv, "first,last,home\n").people, IsEmpty());
}

TEST(Telephone, TheBookIsReadAnewWhenAFileHasChanged) {
    const TemporaryFolder folder;
    std::vector<std::string> complaints;
    Telephone phone(folder.path() / "Phone",
                    [&](const std::string& text) { complaints.push_back(text); });
    EXPECT_EQ(phone.ADRCount(), 0) << "no folder yet";
    folder.write("Phone/b.csv", "first,home\nAnna,1\n,\n");
    folder.write("Phone/a.VCF", "BEGIN:VCARD\nFN:Bob\nTEL:2\nEND:VCARD\n");
    folder.write("Phone/notes.txt", "first,home\nZoe,9\n");
    EXPECT_EQ(phone.ADRCount(), 2);
    EXPECT_EQ(phone.ADRGet(1).last, "Bob");
    EXPECT_EQ(phone.ADRGet(2).First, "Anna");
    EXPECT_THAT(complaints, ElementsAre("b.csv, line 3: no number, passed over"));
    EXPECT_EQ(phone.ADRCount(), 2);
    EXPECT_EQ(complaints.size(), 1U) << "read once";
    EXPECT_THROW(static_cast<void>(phone.ADRGet(0)), std::exception);
    EXPECT_THROW(static_cast<void>(phone.ADRGet(3)), std::exception);
}

TEST(Telephone, EachLineKeepsItsLastCall) {
    Telephone phone("/nowhere", [](const std::string&) {});
    phone.note_call(1, "5551234", "ANNA");
    phone.note_call(2, "1", "");
    EXPECT_EQ(phone.CIDNumber(1) + phone.CIDName(1), "5551234ANNA");
    EXPECT_EQ(phone.CIDNumber(2) + phone.CIDName(2), "1");
    EXPECT_EQ(phone.CIDNumber(3), "");
}

}  // namespace
}  // namespace home
