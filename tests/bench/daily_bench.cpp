// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// How fast a daily note is parsed. Prints medians. A large note is parsed twice: in memory new from the system, which
// takes time for each page it hands out, and in memory that the program has, as the small one.

#include <daily/DailyNoteParser.h>

#include <bench/Measure.h>
#include <malloc.h>

#include <cstdio>
#include <limits>

using namespace flitmark;

namespace {

/// A note of about `size` bytes in which every kind of section comes again and again.
QByteArray noteOfSize(qsizetype size)
{
    const QByteArray sections =
        "## Tasks\n- [ ] Finalize the screenshot pack for the landing page 🍅 🍅\n- [x] Publish FAQ visuals 🍅\n"
        "Some plain text below a task, as people write it, with a [[link]] and a #tag.\n- [ ] Review the notes\n\n"
        "## Coach Notes\n- Keep the morning for deep work\n> and the afternoon for the rest\n\n"
        "## Work Done\n- Header clipping fix deployed\n- Überraschungen für später notiert\n\n"
        "## Notes\nA paragraph that nobody reads but its author. It goes on for a while, because notes do that.\n\n"
        "## Pomodoro Log\n**Today:** 3/8 completed\n\n| # | Time | Focus |\n|---|------|-------|\n"
        "| 1 | 09:30 | Ship landing page v2 |\n| 2 | 10:05 | Ship landing page v2 |\n\n";
    return "---\ndate: 2026-01-22\n---\n# Thursday\n\n## 🎯 Focus\n**Ship landing page v2**\n\n" +
           sections.repeated(size / sections.size() + 1);
}

/// The milliseconds per megabyte from the text to the parsed note; letting go of the note is not measured.
double parseSpeed(const char* memory, qsizetype size, int rounds)
{
    const QString text = QString::fromUtf8(noteOfSize(size));
    QList<double> parsings;
    for (int i = 0; i < rounds; ++i) {
        ParsedDailyNote note;
        parsings.append(milliseconds([&] { note = parseDailyNote(text); }));
    }
    const double megabytes = double(size) / 1e6;
    const double perMegabyte = medianOf(parsings) / megabytes;
    std::printf("parse %.0f MB in %s memory: %.0f MB/s\n", megabytes, memory, 1000 / perMegabyte);
    return perMegabyte;
}

} // namespace

int main()
{
    const double small = parseSpeed("kept", 1'000'000, 201);
    std::printf("new memory, 100 MB against 1 MB: %.2f\n", parseSpeed("new", 100'000'000, 5) / small);
    mallopt(M_MMAP_THRESHOLD, std::numeric_limits<int>::max());
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    std::printf("kept memory, 100 MB against 1 MB: %.2f\n", parseSpeed("kept", 100'000'000, 5) / small);
    return 0;
}
