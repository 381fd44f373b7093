// Lights and a relay behind one interface: virtual functions, a table of objects, constructors that run before main,
// a template over a register's address.

typedef unsigned char byte;

namespace port {

volatile byte out_a;
volatile byte out_b;

// One bit of an output register.
template <volatile byte &Register, int Bit> struct Pin {
    static void set() { Register |= 1 << Bit; }
    static void clear() { Register &= ~(1 << Bit); }
    static bool read() { return (Register & (1 << Bit)) != 0; }
};

}  // namespace port

class Output {
public:
    explicit Output(int on_ticks) : period(on_ticks), left(on_ticks), switched(0) { register_self(); }

    virtual void write(bool on) = 0;
    virtual bool state() const = 0;

    void tick()
    {
        if (--left > 0)
            return;
        left = period;
        ++switched;
        write(!state());
    }

    unsigned switches() const { return switched; }

    static Output *all[4];
    static int count;

private:
    void register_self()
    {
        if (count < 4)
            all[count++] = this;
    }

    int period;
    int left;
    unsigned switched;
};

Output *Output::all[4];
int Output::count;

class Led : public Output {
public:
    explicit Led(int on_ticks) : Output(on_ticks) {}
    void write(bool on) override
    {
        if (on)
            port::Pin<port::out_a, 3>::set();
        else
            port::Pin<port::out_a, 3>::clear();
    }
    bool state() const override { return port::Pin<port::out_a, 3>::read(); }
};

class Relay : public Output {
public:
    Relay(int on_ticks, int hold) : Output(on_ticks), holding(hold), on(false) {}
    void write(bool wanted) override
    {
        if (wanted && holding > 0) {
            --holding;
            return;
        }
        on = wanted;
        if (on)
            port::Pin<port::out_b, 0>::set();
        else
            port::Pin<port::out_b, 0>::clear();
    }
    bool state() const override { return on; }

private:
    int holding;
    bool on;
};

static Led status(3);
static Led alarm(5);
static Relay pump(10, 2);

extern "C" void wait_for_tick();

extern "C" unsigned run(int ticks)
{
    for (int t = 0; t < ticks; t++) {
        wait_for_tick();
        for (int i = 0; i < Output::count; i++)
            Output::all[i]->tick();
    }
    unsigned sum = 0;
    for (int i = 0; i < Output::count; i++)
        sum += Output::all[i]->switches();
    return sum;
}
