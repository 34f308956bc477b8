// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// How fast a daily note is parsed. Prints medians. A large note is parsed twice: in memory new from the system, which
// takes time for each page it hands out, and in memory that the program has, as the small one.

#include <daily/DailyNoteParser.h>
#include <daily/OwnNoteParser.h>

#include <bench/Measure.h>
#include <malloc.h>

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
double parseSpeed(qsizetype size, int rounds, ParsedDailyNote (*parse)(QStringView) = parseDailyNote)
{
    const QString text = QString::fromUtf8(noteOfSize(size));
    QList<double> parsings;
    for (int i = 0; i < rounds; ++i) {
        ParsedDailyNote note;
        parsings.append(milliseconds([&] { note = parse(text); }));
    }
    return medianOf(parsings) / (double(size) / 1e6);
}

} // namespace

int main()
{
    const double small = parseSpeed(1'000'000, 201);
    const double withNewPages = parseSpeed(100'000'000, 5);
    mallopt(M_MMAP_THRESHOLD, std::numeric_limits<int>::max());
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    report("parsing a daily note, a megabyte", withNewPages, "ms", 5);
    report("parsing 100 MB, time per byte against 1 MB", parseSpeed(100'000'000, 5) / small, "times", 1.25);
    const double own = parseSpeed(1'000'000, 201, parseOwnNote);
    report("parsing the own layout against the planned one", own / small, "times", 1.5);
    report("parsing 100 MB of it, time per byte against 1 MB", parseSpeed(100'000'000, 5, parseOwnNote) / own, "times",
           1.25);
    std::printf("  with what the system takes to hand out new pages: %.2f times\n", withNewPages / small);
    return 0;
}
