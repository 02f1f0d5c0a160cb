// What the desktop's widgets ask of the desktop window: the game they show, and a way to run
// the engine on the player's input, after which the whole desk is shown again.
#pragma once

#include <QPoint>
#include <functional>

namespace orrery {

class AppPaths;
struct Game;

class DeskInput {
public:
    virtual ~DeskInput() = default;
    // False once the game has ended: nothing may touch the game then.
    virtual bool playing() const = 0;
    virtual Game &game() = 0;
    virtual const AppPaths &paths() const = 0;
    // Runs input on the model; the desk is brought up to date after it.
    virtual void run(const std::function<void(Game &)> &work) = 0;
    // Shows the quicklist's pop-up menu when a right click asked for it.
    virtual void showQuickMenu(const QPoint &globalPos) = 0;
};

} // namespace orrery
