#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h265/h265_nal_aud.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace kovran {
namespace {

using store = h2645_common_base_store<h265_nal_aud>;

store store_of(const std::vector<unsigned int>& ids) {
    store records;
    for (const unsigned int id : ids) {
        records[id].pic_type = static_cast<unsigned char>(id % 8);
        records[id].valid = true;
    }
    return records;
}

std::string message_of_at(store& records, unsigned int id) {
    try {
        static_cast<void>(std::as_const(records).at(id));
    } catch (const std::out_of_range& error) {
        return error.what();
    }
    return "nothing was thrown";
}

TEST(H2645CommonBaseStore, HasItsFieldsInTheirOrderAndTypes) {
    static_assert(std::is_same_v<decltype(store::active_id), unsigned int>);
    static_assert(std::is_same_v<decltype(store::map), std::map<unsigned int, h265_nal_aud>>);

    const store records;
    const void* const active_id = &records.active_id;
    const void* const map = &records.map;
    EXPECT_EQ(active_id, &records);
    EXPECT_LT(active_id, map);
    static_assert(sizeof(store) ==
                  sizeof(std::pair<unsigned int, std::map<unsigned int, h265_nal_aud>>));
}

TEST(H2645CommonBaseStore, IsEmptyAndWithoutActiveRecordAtFirst) {
    const store records;
    EXPECT_EQ(records.active_id, 0xFFFFFFFF);
    EXPECT_TRUE(records.empty());
    EXPECT_EQ(records.size(), 0U);
    EXPECT_EQ(records.begin(), records.end());
}

TEST(H2645CommonBaseStore, IndexInsertsAFreshRecord) {
    store records;
    const h265_nal_aud& record = records[15];
    EXPECT_EQ(record.pic_type, 0);
    EXPECT_FALSE(record.valid);
    EXPECT_EQ(records.size(), 1U);
    EXPECT_TRUE(records.contains(15));
    EXPECT_FALSE(records.empty());
}

TEST(H2645CommonBaseStore, IndexFindsTheRecordThatIsThere) {
    store records = store_of({5});
    EXPECT_EQ(&records[5], &records.map.at(5));
    EXPECT_EQ(records[5].pic_type, 5);
    EXPECT_EQ(records.size(), 1U);
}

TEST(H2645CommonBaseStore, HoldsEveryIdentifier) {
    store records;
    records[0].pic_type = 1;
    records[0xFFFFFFFF].pic_type = 2;
    EXPECT_EQ(records.at(0).pic_type, 1);
    EXPECT_EQ(records.at(0xFFFFFFFF).pic_type, 2);
    EXPECT_EQ(records.size(), 2U);
}

TEST(H2645CommonBaseStore, AtGivesTheRecord) {
    store records = store_of({0, 3});
    static_assert(std::is_same_v<decltype(std::as_const(records).at(3)), const h265_nal_aud&>);
    EXPECT_EQ(&std::as_const(records).at(3), &records.map.at(3));
    EXPECT_EQ(&records.at(3), &records.map.at(3));
}

TEST(H2645CommonBaseStore, AtThrowsForAnAbsentIdentifierAndInsertsNothing) {
    store records = store_of({0, 1});
    EXPECT_EQ(message_of_at(records, 3), "map::at");
    EXPECT_EQ(message_of_at(records, 0xFFFFFFFF), "map::at");
    EXPECT_THROW(static_cast<void>(records.at(3)), std::out_of_range);
    EXPECT_EQ(records.size(), 2U);

    store empty;
    EXPECT_EQ(message_of_at(empty, 0), "map::at");
}

TEST(H2645CommonBaseStore, SearchingInsertsNothing) {
    store records = store_of({1});
    EXPECT_FALSE(records.contains(0));
    EXPECT_EQ(records.find(0), records.end());
    EXPECT_EQ(std::as_const(records).find(0), std::as_const(records).end());
    EXPECT_EQ(records.size(), 1U);

    ASSERT_NE(records.find(1), records.end());
    EXPECT_EQ(records.find(1)->first, 1U);
    EXPECT_EQ(&records.find(1)->second, &records[1]);
}

TEST(H2645CommonBaseStore, IsOrderedByIdentifier) {
    store records = store_of({7, 0xFFFFFFFF, 0, 31});
    std::vector<unsigned int> ids;
    for (const auto& [id, record] : records) {
        ids.push_back(id);
    }
    EXPECT_EQ(ids, (std::vector<unsigned int>{0, 7, 31, 0xFFFFFFFF}));
}

TEST(H2645CommonBaseStore, ReferencesStayValidWhileTheirRecordExists) {
    store records;
    h265_nal_aud& first = records[9];
    for (unsigned int id = 0; id < 100; ++id) {
        records[id].valid = true;
    }
    records.erase(8);
    EXPECT_EQ(&records[9], &first);
}

TEST(H2645CommonBaseStore, EraseTakesOneRecordOut) {
    store records = store_of({1, 2});
    EXPECT_EQ(records.erase(1), 1U);
    EXPECT_EQ(records.erase(1), 0U);
    EXPECT_FALSE(records.contains(1));
    EXPECT_TRUE(records.contains(2));
}

TEST(H2645CommonBaseStore, EraseAndClearLeaveTheActiveIdentifier) {
    store records = store_of({1, 2});
    records.active_id = 1;
    records.erase(1);
    EXPECT_EQ(records.active_id, 1U);
    records.clear();
    EXPECT_TRUE(records.empty());
    EXPECT_EQ(records.active_id, 1U);
}

}  // namespace
}  // namespace kovran
