// A library of the same name that makes no sheets.
extern "C" __attribute__((visibility("default"))) int Nothing() {
    return 0;
}
