// The parts that pages play in the walk.
#pragma once

// What the walk must know of a page beside its place.
enum class PageRole {
    Ordinary,
    Discovery,   // Its service is left out where the page is.
    Progress,    // The install thread moves on from here by itself.
    CoreFinish,  // Closes the core run; an optional run may follow.
    CoreReboot,  // Passed over where an optional run follows.
    Finish,
    Reboot,
};
