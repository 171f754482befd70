// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// How long frames take, as ratios to a constant-colour fill of the same target measured in turn with them.

#include "render/frame_encoder.h"
#include "render/headless_context.h"
#include "render/stopwatch.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <vector>

using namespace tessel;

namespace {

constexpr int rounds = 25;

/// A target of one size, with the fill that everything is compared with.
class Bench
{
public:
    Bench(int width, int height)
        : m_width(width)
        , m_height(height)
        , m_texture(makeTexture(colorFormat, width, height))
        , m_framebuffer(makeFramebuffer(m_texture))
        , m_fill(makeFill())
    {
        GLuint name = 0;
        glGenVertexArrays(1, &name);
        m_vertexArray = GlVertexArray(name);
    }

    void fill()
    {
        glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer.name());
        glViewport(0, 0, m_width, m_height);
        glBindVertexArray(m_vertexArray.name());
        glUseProgram(m_fill.name());
        glDrawArrays(GL_TRIANGLES, 0, 3);
    }

    void frame(FrameEncoder& encoder, const Look& look)
    {
        m_time += 0.02;
        encoder.encode(
            {.previous = look, .current = look, .width = m_width, .height = m_height, .time = m_time},
            {m_framebuffer.name(), RowOrder::bottomFirst});
    }

    void field(FrameEncoder& encoder, const Look& look)
    {
        m_time += 0.02;
        encoder.encodeField(
            {.previous = look, .current = look, .width = m_width, .height = m_height, .time = m_time});
    }

    /// Median milliseconds of each, run in turn so that all of them meet the same machine.
    static std::vector<double> medians(const std::vector<std::function<void()>>& works)
    {
        std::vector<std::vector<double>> taken(works.size());
        for (int round = -2; round < rounds; ++round) {
            for (std::size_t i = 0; i < works.size(); ++i) {
                glFinish();
                Stopwatch watch;
                works[i]();
                glFinish();
                if (round >= 0)
                    taken[i].push_back(watch.lap());
            }
        }
        std::vector<double> result;
        for (std::vector<double>& times : taken) {
            std::ranges::nth_element(times, times.begin() + rounds / 2);
            result.push_back(times[rounds / 2]);
        }
        return result;
    }

private:
    static GlProgram makeFill()
    {
        static constexpr std::array<const char*, 2> sources = {
            "#version 330 core\nvoid main() { gl_Position = vec4(vec2((gl_VertexID << 1) & 2, gl_VertexID & "
            "2) "
            "* 2.0 - 1.0, 0.0, 1.0); }",
            "#version 330 core\nout vec4 color; void main() { color = vec4(0.2, 0.4, 0.6, 1.0); }"};
        GlProgram program(glCreateProgram());
        for (std::size_t i = 0; i < sources.size(); ++i) {
            const GlShader shader(glCreateShader(i == 0 ? GL_VERTEX_SHADER : GL_FRAGMENT_SHADER));
            glShaderSource(shader.name(), 1, &sources[i], nullptr);
            glCompileShader(shader.name());
            glAttachShader(program.name(), shader.name());
        }
        glLinkProgram(program.name());
        return program;
    }

    int m_width;
    int m_height;
    double m_time = 0;
    GlTexture m_texture;
    GlFramebuffer m_framebuffer;
    GlProgram m_fill;
    GlVertexArray m_vertexArray;
};

void compareWithFillAndEveryPixel(FrameEncoder& encoder, int width, int height)
{
    Bench bench(width, height);
    const Look look;
    Look everyPixel = look;
    everyPixel.pixel = 0.01F;
    const auto times = Bench::medians({[&] { bench.fill(); }, [&] { bench.frame(encoder, look); },
                                       [&] { bench.frame(encoder, everyPixel); }});
    std::printf("%dx%d  fill %6.2f ms   default look %6.2f ms = %.2f fills (limit 4)   "
                "every pixel %7.2f ms = %.1f times slower (at least 3)\n",
                width, height, times[0], times[1], times[1] / times[0], times[2], times[2] / times[1]);
}

void compareDithers(FrameEncoder& encoder)
{
    Bench bench(1920, 1080);
    std::printf("\nwhole frames at 1920x1080, in fills\n");
    for (const Dither dither : allDithers()) {
        Look look;
        look.dither = dither;
        // A smooth look of a later pattern has cells, so that the field is not drawn at every pixel.
        look.pattern = dither == Dither::smooth ? Pattern::silk : Pattern::flow;
        const auto times = Bench::medians({[&] { bench.fill(); }, [&] { bench.field(encoder, look); },
                                           [&] { bench.frame(encoder, look); }});
        std::printf("  %-10s %6.2f ms = %5.2f   without its field %5.2f\n", title(dither).data(), times[2],
                    times[2] / times[0], (times[2] - times[1]) / times[0]);
    }
}

void compareFields(FrameEncoder& encoder)
{
    Bench bench(1920, 1080);
    struct Row
    {
        Pattern pattern;
        double time;
        double ratio;
    };
    std::vector<Row> table;
    for (const Pattern pattern : allPatterns()) {
        Look look;
        look.pattern = pattern;
        look.pixel = 8.0F * desktopReference / 1920.0F; // cells of 8 pixels
        const auto times = Bench::medians({[&] { bench.fill(); }, [&] { bench.field(encoder, look); }});
        table.push_back({pattern, times[1], times[1] / times[0]});
    }
    std::ranges::sort(table, std::greater(), &Row::ratio);
    std::printf("\nfields of 240x135 cells, in fills of 1920x1080 (limit 1.5), slowest first\n");
    for (const Row& row : table)
        std::printf("  %-10s %6.2f ms = %.2f\n", title(row.pattern).data(), row.time, row.ratio);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const HeadlessContext context;
    FrameEncoder encoder;
    std::printf("%s\n", reinterpret_cast<const char*>(glGetString(GL_RENDERER)));
    compareWithFillAndEveryPixel(encoder, 1920, 1080);
    compareWithFillAndEveryPixel(encoder, 3024, 1964);
    compareDithers(encoder);
    compareFields(encoder);
    return 0;
}
