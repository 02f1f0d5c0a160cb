// The editor's words: the titles and texts of its message boxes and questions, one place for
// the editor's windows, `orrery edit` and the tests.
#pragma once

#include "editor/change.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orrery::words {

// Refusals and notes of the tool editor.
inline const Message kTooManyTools{"Error", "Sorry, you have reached the maximum number of tools."};
inline const Message kToolExists{"Error", "A tool with that name already exists."};
inline const Message kNoKindChosen{
    "Error", "You must chose which type of element you want to add from the list on the left."};
inline const Message kNoToolChosen{
    "Error", "You must first select a tool to add an element to. The tool menu is on the right "
             "left. If there are no available tools, add one."};
inline const Message kElementNameInvalid{"Error", "That element name is invalid or too short."};
inline const Message kElementNameExists{"Error",
                                        "That element name already exists in this project."};
inline const Message kArrayTooBig{
    "NO!!!!!!!",
    "That's too many, max is 12, sorry!!!!!!!!!!!!!!!!!! Trust me it for your own good lol!"};
inline const Message kArrayWarning{
    "Create array",
    "fine, if you want an array, you can have it. all the array objects will appear on top of "
    "each other so you will ahve to move them all seperately, hahaha."};
inline const Message kRestartAfterToolRemoval{
    "Delete", "It is recommended to restart ORK after removing tools! (especially if you are "
              "planning to add new tools directly after)."};
inline const Message kTooManyVariables{"Error", "You have the max number of variables, about 250."};
inline const Message kUnderscoresToDashes{"Note",
                                          "Your underscores are being replaced with dashes -"};
inline const Message kNoSubChosen{
    "Hello", "You must select a Sub from the list above. You will be able to assign commands to "
             "the opening and closing of tools."};

// The action editor's words.
inline constexpr std::string_view kAssignActions = "Assign Actions";
inline const Message kGotoNeedsTag{
    "Note", "You must enter a tag name in the text box. You will be able to move the position of "
            "the tag once the GOTO statement has been added."};
inline const Message kFieldsIncomplete{"Error", "All fields must be complete."};
// Our own: a loop of conditions is one condition a number, and a list of thousands helps no one.
inline const Message kLoopTooLong{"Error", "Loop to makes one condition a number: at most 500."};
inline constexpr Question kPasteCommands{"Paste",
                                         "Are you sure you want to paste the clipboard as commands"};
inline constexpr std::string_view kNewVariablePrompt = "Enter new variable name";
inline constexpr std::string_view kCustomValuePrompt = "Add custom value";
inline constexpr std::string_view kPickElement = "Click on the element to be used in the function";
inline constexpr std::string_view kPickVariableInstead = "Double click to use a variable instead.";
inline constexpr std::string_view kFunctionOn = "Function on ";
inline constexpr std::string_view kNoProblems = "No problems found";

// Refusals of the server editor.
inline const Message kTooManyFields{"Error", "You have reached the max, sorry, try deleting one "
                                             "first, restarting the app, and adding it again."};

// Our own refusals, where the editor guards a table or the file's format.
inline const Message kTooManyElements{"Error",
                                      "Sorry, you have reached the maximum number of elements."};
inline const Message kTooManyQlobs{"Error", "Sorry, you have reached the maximum number of qlobs."};
inline const Message kQlobExists{"Error", "A qlob with that name already exists."};
inline const Message kTooManyToolSubs{
    "Error", "Sorry, you have reached the maximum number of tool assignments."};
inline const Message kTooManyHelpTopics{
    "Error", "Sorry, you have reached the maximum number of help topics."};
inline const Message kTooManyServers{
    "Error", "Sorry, you have reached the maximum number of custom servers."};
inline const Message kUnwritableName{
    "Error", "A name can't hold a colon, a back-quote, a line break or another control "
             "character, and can't be longer than 100 characters."};
inline const Message kUnwritableValue{
    "Error", "A value can't hold a colon, a line break or another control character: the "
             "project file keeps neither."};
inline const Message kNoSuchTool{"Error", "There is no tool of that name."};
inline const Message kNoSuchElement{"Error", "There is no element of that name."};
inline const Message kNoSuchQlob{"Error", "There is no qlob of that name."};
inline const Message kNoSuchVariable{"Error", "There is no variable of that name."};
inline const Message kVariableExists{"Error", "A variable with that name already exists."};

// Refusals of a property's value. label is the property's name for an author ("font size").
inline const Message kKindNotChanged{"Error", "An element's kind and number are not changed."};
inline Message NoSuchProperty(std::string_view kind, std::string_view key) {
    return {"Error", "A " + std::string(kind) + " has no property \"" + std::string(key) + "\"."};
}
inline Message NotTrueOrFalse(std::string_view label) {
    std::string text(label);
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z')
        text[0] = static_cast<char>(text[0] - 32);
    return {"Error", text + " is True or False."};
}
// choices: the words of low, low + 1, ... separated by "|", or empty.
inline Message NotInRange(std::string_view label, std::int32_t low, std::int32_t high,
                          std::string_view choices = {}) {
    std::string text = "The " + std::string(label) + " is a whole number from " +
                       std::to_string(low) + " to " + std::to_string(high);
    for (std::int32_t n = low; !choices.empty(); ++n) {
        const std::size_t bar = choices.find('|');
        text += (n == low ? ": " : ", ") + std::to_string(n) + " " +
                std::string(choices.substr(0, bar));
        choices = bar == std::string_view::npos ? std::string_view() : choices.substr(bar + 1);
    }
    return {"Error", text + "."};
}
inline const Message kPictureWithPath{
    "Error", "A picture is named by its file name alone: it lies in Res/uimages."};

// Refusals and the question of taking a picture into the project's Res/uimages.
inline Message UnusablePictureName(std::string_view file) {
    return {"Error", "The picture \"" + std::string(file) +
                         "\" can't be named in the project file: a picture's name holds no "
                         "colon, back-quote, back-slash or control character, no character "
                         "outside Windows-1252, and no blank at either end, and is at most 100 "
                         "characters long. Rename the file and choose it again."};
}
inline Message PictureUnreadable(std::string_view file, std::string_view reason) {
    return {"Error", "The picture \"" + std::string(file) +
                         "\" can't be read: " + std::string(reason) + "."};
}
inline Message PictureNotCopied(std::string_view file) {
    return {"Error",
            "The picture \"" + std::string(file) + "\" could not be copied into Res/uimages."};
}

// The questions the front end asks before it calls an operation.
inline constexpr Question kDeleteElement{"Delete", "Would you like to delete this element?"};
inline constexpr Question kDeleteSelected{
    "Delete", "Are you sure you want to delete all of the selected items?"};
inline constexpr Question kDeleteTool{"Delete", "Are you sure you want to delete this tool?"};
inline constexpr Question kRemoveQlob{"Remove", "Would you like to remove this qlob?"};
inline constexpr Question kRemoveItem{"Remove", "Would you like to remove this item?"};
// Answered Replace, Keep Both or Cancel.
inline constexpr Question kReplacePicture{
    "Picture", "Res/uimages already holds a different picture of that name. Replace it, so that "
               "everything showing it shows the new one, or keep both, the new one under a "
               "name of its own?"};

// Prompts of the editor's input boxes.
inline constexpr std::string_view kElementNamePrompt = "Enter a name for this control";
inline constexpr std::string_view kArrayPromptTitle = "Create array";
inline constexpr std::string_view kArrayPrompt =
    "How many items in the array? (too many might annoy you)";
inline constexpr std::string_view kQlobNamePrompt =
    "Enter a name for this Qlob function (NO SPACES)";

// The command list a new qonsole starts with.
inline constexpr std::string_view kNewQonsoleCommands =
    "DATE (Show the current date.)`HELP (Show available commands.)`NOW (Show the current time "
    "and date.)`TIME (Show the current time.)";

} // namespace orrery::words
