// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/drawing_test.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

std::atomic<long> allocations = 0;
long graphicsObjects = 0;

/// Stands in for an OpenGL function that makes something, and counts its calls.
template<auto& Function>
struct Counted;

template<typename Result, typename... Arguments, Result (*&Function)(Arguments...)>
struct Counted<Function>
{
    static inline long calls = 0;
    static Result call(Arguments... arguments)
    {
        ++graphicsObjects;
        ++calls;
        return other(arguments...);
    }
    static inline Result (*other)(Arguments...) = call;
    static void exchange() { std::swap(Function, other); }
};

} // namespace

// Every C++ allocation of the test program is counted.
void* operator new(std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept
{
    ++allocations;
    return std::malloc(size);
}

void* operator new(std::size_t size)
{
    if (void* memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace tessel {
namespace {

class SteadyState : public DrawingTest
{
protected:
    SteadyState()
    {
        // The loader looks a function up when it is first called; only then does it hold what it calls.
        glDeleteShader(glCreateShader(GL_VERTEX_SHADER));
        countCreations();
    }
    ~SteadyState() override { countCreations(); }

    /// Begins to count, or ends it.
    static void countCreations()
    {
        Counted<epoxy_glGenTextures>::exchange();
        Counted<epoxy_glTexImage2D>::exchange();
        Counted<epoxy_glGenFramebuffers>::exchange();
        Counted<epoxy_glCreateShader>::exchange();
    }

    GlTexture texture = makeTexture(colorFormat, 320, 180);
    GlFramebuffer framebuffer = makeFramebuffer(texture);

    void play(const Look& from, const Look& to, int frames)
    {
        for (int i = 0; i < frames; ++i)
            encoder.encode({.previous = from,
                            .current = to,
                            .width = 320,
                            .height = 180,
                            .mix = i % 2 == 0 ? 0.5F : 1.0F,
                            .time = 0.1 * i},
                           {framebuffer.name(), RowOrder::bottomFirst});
        glFinish();
    }
};

TEST_F(SteadyState, AllocatesNothingAfterTheFirstFrames)
{
    Look from = rampLook();
    from.custom = {0x102030, 0xF0E0D0};
    Look to;
    to.imagePath = from.imagePath;
    for (const Dither dither : allDithers()) {
        from.dither = to.dither = dither;
        play(from, to, 4);
        const long before = allocations;
        const long objectsBefore = graphicsObjects;
        play(from, to, 20);
        EXPECT_EQ(allocations - before, 0) << title(dither);
        EXPECT_EQ(graphicsObjects - objectsBefore, 0) << title(dither);
    }
}

TEST_F(SteadyState, APreparedFrameBuildsNoShader)
{
    const long& shadersMade = Counted<epoxy_glCreateShader>::calls;
    Look from;
    from.pattern = Pattern::silk;
    Look to;
    to.pattern = Pattern::whorl;
    for (const Dither dither : allDithers()) {
        from.dither = to.dither = dither;
        const Frame frame{.previous = from, .current = to, .width = 1280, .height = 720, .mix = 0.5F};
        const auto picture = renderStill(encoder, frame);
        FrameEncoder fresh;
        EXPECT_FALSE(fresh.isPrepared(frame)) << title(dither);
        fresh.prepare(frame);
        EXPECT_TRUE(fresh.isPrepared(frame)) << title(dither);
        const long before = shadersMade;
        const auto prepared = renderStill(fresh, frame);
        EXPECT_EQ(shadersMade, before) << title(dither);
        EXPECT_TRUE(std::equal(picture->pixels.get(), picture->pixels.get() + picture->pixelCount(),
                               prepared->pixels.get()))
            << title(dither);
    }
    EXPECT_GT(shadersMade, 0) << "the count is of something";
}

TEST_F(SteadyState, TheCountNoticesAnAllocation)
{
    const long before = allocations;
    delete new int(1); // NOLINT: what is counted
    EXPECT_EQ(allocations - before, 1);
    const long objectsBefore = graphicsObjects;
    (void)makeTexture(colorFormat, 8, 8);
    EXPECT_GE(graphicsObjects - objectsBefore, 2) << "a name and its storage";
}

} // namespace
} // namespace tessel
