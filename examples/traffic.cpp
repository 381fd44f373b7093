// A crossing as a state machine: an enumeration, a table of states with functions in it, a switch, nested decisions.

namespace traffic {

enum State { all_red, north_green, north_yellow, east_green, east_yellow, walking, states };

enum Event { tick, button, night, fault };

struct Crossing {
    State state;
    int left;
    bool walk_wanted;
    bool at_night;
    unsigned cycles;
};

typedef State (*Next)(const Crossing &);

struct Phase {
    unsigned char lamps;
    int seconds;
    Next next;
};

static State after_red(const Crossing &crossing)
{
    return crossing.walk_wanted ? walking : north_green;
}

static State after_north(const Crossing &)
{
    return north_yellow;
}

static State after_north_yellow(const Crossing &)
{
    return east_green;
}

static State after_east(const Crossing &)
{
    return east_yellow;
}

static State to_red(const Crossing &)
{
    return all_red;
}

static const Phase phases[states] = {
    {0x09, 2, after_red}, {0x21, 30, after_north}, {0x11, 4, after_north_yellow},
    {0x0c, 20, after_east}, {0x0a, 4, to_red},     {0x49, 12, to_red},
};

static void enter(Crossing &crossing, State state)
{
    if (state == all_red)
        ++crossing.cycles;
    if (state == walking)
        crossing.walk_wanted = false;
    crossing.state = state;
    crossing.left = phases[state].seconds;
    if (crossing.at_night && crossing.left > 10)
        crossing.left = 10;
}

static void step(Crossing &crossing)
{
    if (--crossing.left > 0)
        return;
    enter(crossing, phases[crossing.state].next(crossing));
}

void handle(Crossing &crossing, Event event)
{
    switch (event) {
    case tick:
        step(crossing);
        break;
    case button:
        if (crossing.state != walking) {
            crossing.walk_wanted = true;
            if (crossing.state == north_green && crossing.left > 5)
                crossing.left = 5;
        }
        break;
    case night:
        crossing.at_night = !crossing.at_night;
        break;
    default:
        enter(crossing, all_red);
    }
}

}  // namespace traffic

static traffic::Crossing crossing = {traffic::all_red, 1, false, false, 0};

extern "C" unsigned char lamps()
{
    return traffic::phases[crossing.state].lamps;
}

extern "C" void simulate(const char *events)
{
    while (char c = *events++) {
        traffic::Event event = traffic::tick;
        if (c == 'b')
            event = traffic::button;
        else if (c == 'n')
            event = traffic::night;
        else if (c == '!')
            event = traffic::fault;
        traffic::handle(crossing, event);
    }
}
