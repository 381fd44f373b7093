// Checksums over frames: constant tables, bit operations, a structure by value, a frame reader in one loop.

typedef unsigned char byte;
typedef unsigned int word;

namespace crc {

// The CCITT polynomial by half bytes.
static const word steps[16] = {0x0000, 0x1021, 0x2042, 0x3063, 0x4084, 0x50a5, 0x60c6, 0x70e7,
                               0x8108, 0x9129, 0xa14a, 0xb16b, 0xc18c, 0xd1ad, 0xe1ce, 0xf1ef};

word add(word sum, byte data)
{
    sum = steps[(sum >> 12) ^ (data >> 4)] ^ (sum << 4);
    return steps[(sum >> 12) ^ (data & 15)] ^ (sum << 4);
}

word of(const byte *data, int length)
{
    word sum = 0xffff;
    while (length-- > 0)
        sum = add(sum, *data++);
    return sum;
}

// The same, bit by bit: what the table was made from.
word slow(const byte *data, int length)
{
    word sum = 0xffff;
    for (int i = 0; i < length; i++) {
        sum ^= data[i] << 8;
        for (int bit = 0; bit < 8; bit++) {
            if (sum & 0x8000)
                sum = (sum << 1) ^ 0x1021;
            else
                sum <<= 1;
        }
    }
    return sum;
}

}  // namespace crc

struct Frame {
    byte kind;
    byte length;
    byte data[12];
    word sum;
};

enum Verdict { good, too_long, broken };

static Verdict check(Frame frame)
{
    if (frame.length > sizeof frame.data)
        return too_long;
    return crc::of(frame.data, frame.length) == frame.sum ? good : broken;
}

extern "C" int fletcher(const byte *data, int length)
{
    word low = 0;
    word high = 0;
    for (int i = 0; i < length; ++i) {
        low = (low + data[i]) % 255;
        high = (high + low) % 255;
    }
    return (high << 8) | low;
}

static const Frame samples[] = {
    {1, 4, {'p', 'i', 'n', 'g'}, 0x0},
    {2, 3, {1, 2, 3}, 0xadad},
};

extern "C" int count_good()
{
    int count = 0;
    for (const Frame &sample : samples) {
        if (check(sample) == good)
            ++count;
    }
    return count;
}

extern "C" bool tables_agree(const byte *data, int length)
{
    return crc::of(data, length) == crc::slow(data, length);
}
