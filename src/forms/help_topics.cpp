#include <algorithm>
#include <array>

#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "host/object.h"

namespace t_genproc {
namespace {

constexpr std::array<std::int32_t, 3> kContents{1, 7100, 7110};  // topics that are the table of contents

}  // namespace

void cGenProcs::HelpActiveForm(const ObjectPointer& currentForm, const std::string& /*progPath*/) {
    procedure(library_, "(Class Module) cGenProcs::Sub HelpActiveForm", [&] {
        const t_gencvf::LateBound form(currentForm);
        const std::int32_t topic = toInt32(form["HelpContextID"].get());
        ShowTopicID(topic, toInt32(form["hWnd"].get()));
    });
}

void cGenProcs::ShowTopicID(std::int32_t topicID, std::int32_t /*hWnd*/, std::string* helpFile) {
    procedure(library_, "(Class Module) cGenProcs::Sub ShowTopicID", [&] {
        std::string applicationsOwn;
        std::string& file = helpFile != nullptr ? *helpFile : applicationsOwn;
        if (file.empty()) file = library_.application().helpFile;
        const bool isContents = std::ranges::find(kContents, topicID) != kContents.end();
        library_.platform().helpViewer->HtmlHelpA(
            0, file, isContents ? HelpCommand::TableOfContents : HelpCommand::Topic, topicID);
    });
}

}  // namespace t_genproc
