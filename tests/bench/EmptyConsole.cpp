// The least that a program without a window can be: what the memory of a silent run is compared with.

int wmain() {
    return 0;
}
