// options: -g
// A controller in fixed-point numbers: a value class with operators, members of members, defaults, clamping. Compiled
// with debug information, so the members keep their names.

// A number with eight bits behind the point.
class Fixed {
public:
    Fixed() : raw(0) {}
    Fixed(int whole) : raw(whole * 256) {}

    static Fixed from_raw(long bits)
    {
        Fixed result;
        result.raw = bits;
        return result;
    }

    Fixed operator+(const Fixed &other) const { return from_raw(raw + other.raw); }
    Fixed operator-(const Fixed &other) const { return from_raw(raw - other.raw); }
    Fixed operator-() const { return from_raw(-raw); }
    Fixed operator*(const Fixed &other) const { return from_raw((raw * other.raw) / 256); }
    Fixed operator/(const Fixed &other) const { return from_raw((raw * 256) / other.raw); }
    Fixed &operator+=(const Fixed &other)
    {
        raw += other.raw;
        return *this;
    }
    bool operator<(const Fixed &other) const { return raw < other.raw; }
    bool operator>(const Fixed &other) const { return raw > other.raw; }

    int whole() const { return raw / 256; }

private:
    long raw;
};

template <typename T> T clamp(const T &value, const T &low, const T &high)
{
    if (value < low)
        return low;
    if (value > high)
        return high;
    return value;
}

struct Gains {
    Fixed proportional;
    Fixed integral;
    Fixed derivative;
};

struct Limits {
    int low;
    int high;
};

class Controller {
public:
    Controller(const Gains &wanted, const Limits &range) : gains(wanted), limits(range), sum(0), last(0) {}

    int step(int target, int measured)
    {
        const Fixed error = Fixed(target) - Fixed(measured);
        sum += error * gains.integral;
        sum = clamp(sum, Fixed(limits.low), Fixed(limits.high));
        const Fixed change = error - last;
        last = error;
        const Fixed drive = error * gains.proportional + sum + change * gains.derivative;
        return clamp(drive.whole(), limits.low, limits.high);
    }

    void reset()
    {
        sum = 0;
        last = 0;
    }

private:
    Gains gains;
    Limits limits;
    Fixed sum;
    Fixed last;
};

static const Gains heater_gains = {Fixed(2), Fixed::from_raw(16), Fixed::from_raw(64)};
static const Limits heater_limits = {0, 100};
static Controller heater(heater_gains, heater_limits);

extern "C" int read_temperature();
extern "C" void set_heater(int percent);

extern "C" void control(int target)
{
    const int measured = read_temperature();
    if (measured < -40 || measured > 125) {
        heater.reset();
        set_heater(0);
        return;
    }
    set_heater(heater.step(target, measured));
}
