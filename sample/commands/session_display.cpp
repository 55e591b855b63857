#include "commands/session_chapters.h"
#include "display.h"
#include "screen.h"

namespace tavoru {

void fitAndPrompt(Tavoru& tavoru) {
    heading("Paths, prompts and lists");
    tell(R"(The window of results has a label for the path of last year's job, 2600 twips wide. The library
         asks the window how wide the text is, and takes the folder in the middle out until it fits. The
         numbers are the widths, the bars are not on the label.)");
    show(labelLines(tavoru.procs, "C:\\Archive\\2025\\Autumn\\Harbour wall\\Levels\\Harbour.job", 2600));
    tell(R"(A traverse begins with a question. It takes the place of datum and projection in the status area,
         in the yellow of tooltips, until the surveyor has answered.)");
    show(promptLines(tavoru, "Pick the first station"));
    tell("The stations are offered as a list. Letter case does not count when the library sorts it.");
    Lines stations{"", "quarry", "bolt 12", "Anchor", "Quarry", "gate", "BOLT 7", "church"};
    show(inColumns({stations.begin() + 1, stations.end()}));
    tavoru.procs.Shell_Sort(stations);
    show(inColumns({stations.begin() + 1, stations.end()}));
    tell("Each line of a printed list has its number and its description in one field of 20 characters.");
    show({inBars(tavoru.procs.CombineAlphaDesc("12", "Bolt at the gate", 20, true)),
          inBars(tavoru.procs.CombineAlphaDesc("12", "Bolt at the gatehouse", 20, true)),
          inBars(tavoru.procs.CombineAlphaDesc("Quarry", "Quarry", 20, true))});
    tell("The surveyor wonders about the angles and presses F1. This is what the help viewer is asked for.");
    show(topicLines(tavoru, 4104, false));
}

}  // namespace tavoru
