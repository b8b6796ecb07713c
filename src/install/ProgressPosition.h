// How far the progress bar stands. Functions of their arguments, for any thread.
#pragma once

#include <optional>

// Returns the step count after one more step: never total on the way forward, never 0 on the way back.
int NextStep(int current, int total, bool uninstalling);

struct BarMove {
    bool inRange = false;
    std::optional<int> position;  // where the bar moves to, if it moves
};

// Returns where the bar moves for the percentage of the package at work. highest is the furthest position of
// the present direction; low and high are the range of the bar, against which the forward position is tested
// in both directions. A step is 100 wide. The bar never turns back within one direction.
BarMove MoveBar(int currentStep, int percent, int highest, int low, int high, bool uninstalling);
