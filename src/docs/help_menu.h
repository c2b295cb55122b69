#pragma once

#include "core/module1.h"
#include "forms/controls.h"

namespace docs {

/// The menu that opens the documents, each in its viewer, and the About box.
class HelpMenu {
  public:
    HelpMenu(core::Program& program, forms::Container& bar);

    /// Enables the three documents with a configurable path only if that path is set.
    void fitToPaths();

  private:
    void mnuHelpStart_Click() { openPage("\\GettingStarted.htm"); }
    void mnuHelpContents_Click() { openPage("\\default.htm"); }
    void mnuHelpTutorial_Click() { browse(program_.state.TutorialPath); }
    void mnuHelpManual_Click() { browse(program_.state.ManualHtmlPath); }
    void mnuHelpManPDF_Click();
    void mnuHelpExample_Click() { openPage("\\examples.htm"); }
    void mnuHelpLibrary_Click() { openPage("\\UsingStd-iLibraryContents.htm"); }
    void mnuHelpPFE_Click() { openPage("\\SettingUpPFEContents.htm"); }
    void mnuHelpBeta_Click() { openPage("\\credits.htm"); }
    void mnuHelpAbout_Click();

    void openPage(const std::string& page);
    void browse(const std::string& document);
    void view(const char* viewerName, const std::string& viewer, const std::string& document);

    core::Program& program_;
    forms::Container& bar_;

  public:
    forms::MenuItem mnuHelp{bar_, {.name = "mnuHelp", .caption = "&Help"}};
    forms::MenuItem mnuHelpStart{
        mnuHelp,
        {
            .name = "mnuHelpStart",
            .caption = "Getting &Started",
            .event = [this] { mnuHelpStart_Click(); },
        },
    };
    forms::MenuItem mnuHelpContents{
        mnuHelp,
        {
            .name = "mnuHelpContents",
            .caption = "&Contents",
            .event = [this] { mnuHelpContents_Click(); },
        },
    };
    forms::MenuItem mnuHelpSep1{mnuHelp, {.name = "mnuHelpSep1", .caption = "-"}};
    forms::MenuItem mnuHelpTutorial{
        mnuHelp,
        {
            .name = "mnuHelpTutorial",
            .caption = "KELM &Tutorial (HTML)",
            .event = [this] { mnuHelpTutorial_Click(); },
        },
    };
    forms::MenuItem mnuHelpManual{
        mnuHelp,
        {
            .name = "mnuHelpManual",
            .caption = "KELM &Manual (HTML)",
            .event = [this] { mnuHelpManual_Click(); },
        },
    };
    forms::MenuItem mnuHelpManPDF{
        mnuHelp,
        {
            .name = "mnuHelpManPDF",
            .caption = "KELM Manual (&PDF)",
            .event = [this] { mnuHelpManPDF_Click(); },
        },
    };
    forms::MenuItem mnuHelpSep2{mnuHelp, {.name = "mnuHelpSep2", .caption = "-"}};
    forms::MenuItem mnuHelpExample{
        mnuHelp,
        {
            .name = "mnuHelpExample",
            .caption = "Source Code &Examples",
            .event = [this] { mnuHelpExample_Click(); },
        },
    };
    forms::MenuItem mnuHelpLibrary{
        mnuHelp,
        {
            .name = "mnuHelpLibrary",
            .caption = "Using the STD.I &Library",
            .event = [this] { mnuHelpLibrary_Click(); },
        },
    };
    forms::MenuItem mnuHelpPFE{
        mnuHelp,
        {
            .name = "mnuHelpPFE",
            .caption = "Installing the P&FE Text Editor",
            .event = [this] { mnuHelpPFE_Click(); },
        },
    };
    forms::MenuItem mnuHelpSep3{mnuHelp, {.name = "mnuHelpSep3", .caption = "-"}};
    forms::MenuItem mnuHelpBeta{
        mnuHelp,
        {
            .name = "mnuHelpBeta",
            .caption = "C&redits",
            .event = [this] { mnuHelpBeta_Click(); },
        },
    };
    forms::MenuItem mnuHelpAbout{
        mnuHelp,
        {
            .name = "mnuHelpAbout",
            .caption = "&About",
            .event = [this] { mnuHelpAbout_Click(); },
        },
    };
};

}  // namespace docs
