// A host whose memory ends: every operation fails with its reason or gives the right answer.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "support/fake_bureau.h"
#include "xml/zr_string_builder.h"

namespace {

constexpr long kNever = -1;
thread_local long allocations_left = kNever;

void* allocate(std::size_t size) {
    if (allocations_left == 0) {
        throw std::bad_alloc();
    }
    allocations_left -= allocations_left > 0 ? 1 : 0;
    void* memory = std::malloc(size == 0 ? 1 : size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace zr::test {
namespace {

constexpr const char* kReply = R"(<BCAmessage service-request-id="4711"><BCAservices><BCAservice>
<BCAservice-data><response><enquiry-report><primary-match type="strong match">
<bureau-reference>987654321</bureau-reference><individual><individual-name>
<family-name>A family name that is long</family-name></individual-name></individual>
</primary-match></enquiry-report></response></BCAservice-data></BCAservice></BCAservices>
</BCAmessage>)";

/// Runs an operation with memory for so many allocations.
template <class Run>
bool with_memory_for(long allocations, Run run) {
    allocations_left = allocations;
    const bool result = run();
    allocations_left = kNever;
    return result;
}

void prepare(FakeBureau& bureau) {
    bureau.script().reply.body = kReply;
    bureau.ask("consumer-enquiry");
    bureau.request->LastName("A family name that is long");
}

TEST(Memory, ThatEndsInAnEnquiryLeavesItToBeAskedAgain) {
    long points = 0;
    for (bool done = false; !done; ++points) {
        FakeBureau bureau;
        prepare(bureau);
        const auto enquire = [&] { return bureau.facade.ExecuteCreditEnquiry(*bureau.request); };
        done = with_memory_for(points, enquire);
        if (!done) {
            EXPECT_TRUE(bureau.request->Dirty()) << points;
            EXPECT_TRUE(bureau.facade.ErrorMessage().starts_with("Not enough memory."))
                << points << ": " << bureau.facade.ErrorMessage();
            EXPECT_TRUE(enquire()) << points;
        }
        const Response& response = *bureau.request->Response();
        EXPECT_EQ(response.RequestId(), "4711") << points;
        EXPECT_EQ(response.LastName(), "A family name that is long") << points;
        EXPECT_FALSE(bureau.request->Dirty()) << points;
    }
    EXPECT_GT(points, 50);
}

TEST(Memory, ThatEndsInATranslationMakesACleanRequestDirty) {
    long points = 0;
    for (bool done = false; !done; ++points) {
        FakeBureau bureau;
        prepare(bureau);
        const DateTime date = kClock.date_only();
        const std::string reply = kReply;
        ASSERT_TRUE(bureau.facade.ExecuteCreditEnquiry(*bureau.request));
        done = with_memory_for(
            points, [&] { return bureau.facade.BuildResponse(*bureau.request, date, reply); });
        EXPECT_TRUE(bureau.facade.ExecuteCreditEnquiry(*bureau.request));
        EXPECT_EQ(bureau.request->Response()->RequestId(), "4711") << points;
    }
    EXPECT_GT(points, 20);
}

TEST(Memory, ThatEndsInInitialiseLeavesWhatWas) {
    long points = 0;
    for (bool done = false; !done; points += points < 50 ? 1 : 97) {
        FakeBureau bureau;
        done = with_memory_for(points, [&] { return bureau.facade.Initialise("AU"); });
        EXPECT_EQ(done, bureau.facade.ErrorMessage().empty()) << points;
        EXPECT_EQ(bureau.facade.Services().Count(), 2) << points;
        prepare(bureau);
        EXPECT_TRUE(bureau.facade.ExecuteCreditEnquiry(*bureau.request)) << points;
    }
    EXPECT_GT(points, 50);
}

TEST(Memory, ThatIsTooSmallForABuffersCapacityIsNoFailure) {
    ZRStringBuilder builder;
    EXPECT_TRUE(with_memory_for(0, [&] {
        builder.Initialise(100'000);
        return true;
    }));
    EXPECT_EQ(builder.buffer_size(), 0U);
    builder.Append("text");
    EXPECT_FALSE(with_memory_for(0, [&] {
        try {
            builder.Append(std::string_view("more text", 9));
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    }));
    EXPECT_EQ(builder.ToString(), "text");
}

TEST(Memory, ThatEndsGivesNoRequest) {
    FakeBureau bureau;
    EXPECT_TRUE(with_memory_for(0, [&] { return bureau.facade.CreateRequest() == nullptr; }));
    EXPECT_EQ(bureau.facade.ErrorCode(), "memory");
    EXPECT_EQ(bureau.facade.ErrorMessage(), "Not enough memory.");
}

}  // namespace
}  // namespace zr::test
