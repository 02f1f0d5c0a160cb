// The project checker: the mistakes an author makes in a project that the game would meet
// quietly (an unknown statement, a jump to a missing label, a tool that is not there), found
// before a player finds them, each on the line of the project file where it stands.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

class AppPaths;
struct ProjectModel;

enum class Severity { Error, Warning };

// Where a finding stands in the project, so that the editor can open what is at fault.
struct FindingPlace {
    enum class Kind {
        Project,      // the project as a whole
        Setting,      // a key of the file: name is the key ("mygamebackground")
        Element,      // name is the element's stored name, key the property ("action", "caption")
        Qlob,         // name is the qlob's name
        ToolSub,      // name is "<tool>:<event>"
        MainLoad,     // the start-up sequence
        Variable,     // name is the variable's name, "$" included
        CustomServer, // number is the server's place in the list, from 1
        Menu,         // a menu record: name is its key
        Dynamic,      // number is the dynamic's place in the list, from 1
        Help,         // name is the topic's title
    };
    Kind kind = Kind::Project;
    std::string name;
    std::string key;
    int number = 0;
    int statement = 0; // in a sequence: the statement's place, from 1; 0 for the whole
};

struct Finding {
    Severity severity = Severity::Error;
    std::string code;    // a stable word for the kind of mistake: "unknown-statement"
    std::string message; // names the offending word, then what to do about it in a few words
    FindingPlace place;
    int line = 0; // the line of the project file that holds the offending text, from 1; 0: none
};

// Every finding of the project as loaded into the model, in the order of the file's lines.
// fileText is the project file the model was loaded from (it gives the lines, and shows what
// the reader cut); paths lets the checker look for media under Res/, and an application folder
// without Res/ has its media passed over. The model is not changed.
std::vector<Finding> CheckProject(const ProjectModel &model, std::string_view fileText,
                                  const AppPaths &paths);

// The verdict on one statement being composed, before it joins a sequence: what the checker
// would say of it there (an unknown name, the count of its arguments, a qlob, tool, element,
// list or console that does not exist, a jump to a label the sequence lacks). The places and
// lines of the findings are left empty.
std::vector<Finding> CheckStatement(const ProjectModel &model, std::string_view statement,
                                    std::span<const std::string> sequence);

} // namespace orrery
