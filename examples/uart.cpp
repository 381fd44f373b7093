// A serial port with a ring buffer on either side: a class template, an operator, static members, volatile registers.

typedef unsigned char byte;

template <typename T, int Size> class Ring {
public:
    bool empty() const { return head == tail; }
    bool full() const { return next(head) == tail; }

    bool put(const T &value)
    {
        if (full()) {
            ++lost;
            return false;
        }
        slots[head] = value;
        head = next(head);
        return true;
    }

    bool get(T &value)
    {
        if (empty())
            return false;
        value = slots[tail];
        tail = next(tail);
        return true;
    }

    int losses() const { return lost; }

private:
    static byte next(byte at) { return at + 1 < Size ? at + 1 : 0; }

    T slots[Size];
    byte head;
    byte tail;
    int lost;
};

struct Registers {
    volatile byte data;
    volatile byte control;
};

enum Control : byte { ready = 0x01, pending = 0x02, enable = 0x80 };

class Uart {
public:
    void open(Registers *registers)
    {
        device = registers;
        device->control = enable;
    }

    // Called by the interrupt of the port.
    void service()
    {
        if (device->control & pending)
            received.put(byte(device->data));
        if (device->control & ready) {
            byte c;
            if (waiting.get(c))
                device->data = c;
        }
    }

    Uart &operator<<(const char *text)
    {
        while (*text)
            waiting.put(*text++);
        return *this;
    }

    Uart &operator<<(int value)
    {
        if (value < 0) {
            waiting.put('-');
            value = -value;
        }
        if (value >= 10)
            *this << value / 10;
        waiting.put('0' + value % 10);
        return *this;
    }

    // One line without its end, or -1 if none is complete.
    int read_line(char *line, int size)
    {
        byte c;
        while (received.get(c)) {
            if (c == '\n') {
                const int length = fill;
                line[fill] = '\0';
                fill = 0;
                return length;
            }
            if (fill < size - 1)
                line[fill++] = c;
        }
        return -1;
    }

    int losses() const { return received.losses() + waiting.losses(); }

private:
    Registers *device;
    Ring<byte, 16> received;
    Ring<byte, 32> waiting;
    int fill;
};

Uart console;

extern "C" void greet(const char *name, int visits)
{
    console << "hello " << name << ", visit " << visits << "\n";
}
