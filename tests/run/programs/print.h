// What every program prints with: a line for each value. Brought along by the runner.
#ifdef __cplusplus
extern "C" {
#endif
void put(const char *what, int value);
void put64(const char *what, long long value);
void putd(const char *what, double value);
#ifdef __cplusplus
}
#endif
