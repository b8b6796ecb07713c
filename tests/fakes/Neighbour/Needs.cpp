// What ties the scripted library to its neighbour.

extern "C" {
__declspec(dllimport) int NeighbourAnswer();
int AskNeighbour();
}

int AskNeighbour() {
    return NeighbourAnswer();
}
