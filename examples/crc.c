// quarl V4.1.6
// source file: crc.cpp
#include <string.h>

/*	structures definitions
 */
struct unnamed_3 {
	char f0;
	char f1;
	char f2;
	char f3;
	char f4[8];
	};

struct unnamed_2 {
	char f0;
	char f1;
	struct unnamed_3 f2;
	int f3;
	};

struct unnamed_5 {
	char f0;
	char f1;
	char f2;
	char f3[9];
	};

struct unnamed_4 {
	char f0;
	char f1;
	struct unnamed_5 f2;
	int f3;
	};

struct unnamed_1 {
	struct unnamed_2 f0;
	struct unnamed_4 f1;
	};

struct Frame {
	char f0;
	char f1;
	char f2[12];
	int f3;
	};


/*	externs definitions
 */
int _ZN3crc3addEjh(int , char );	//count=2
int _ZN3crc2ofEPKhi(char *, int );	//count=4
int _ZN3crc4slowEPKhi(char *, int );	//count=2
static int _ZL5check5Frame(struct Frame *);	//count=2

/*	variables definitions
 */
static const int _ZN3crcL5stepsE[16] = {0, 4129, 8258, 12387, 16516, 20645, 24774, 28903, -32504, -28375, -24246, -20117, -15988, -11859, -7730, -3601};	// count=2
static const struct unnamed_1 _ZL7samples = {{1, 4, {112, 105, 110, 103}, 0}, {2, 3, {1, 2, 3}, -21075}};	// count=3

/*	functions definitions
 */
int _ZN3crc3addEjh(int sum, char data)
	{
	sum = (_ZN3crcL5stepsE[(((unsigned int )sum) >> 12) ^ (((char )data) >> 4)]) ^ (sum << 4);
	return (_ZN3crcL5stepsE[(((unsigned int )sum) >> 12) ^ (((char )data) & 15)]) ^ (sum << 4);
	}

int _ZN3crc2ofEPKhi(char *data, int length)
	{
	int sum;

	sum = -1;
	while ((length--) > 0)
		{
		sum = _ZN3crc3addEjh(sum, *data++);
		}
	return sum;
	}
// calls: _ZN3crc3addEjh, 

int _ZN3crc4slowEPKhi(char *data, int length)
	{
	int sum;
	int i;
	int bit;

	sum = -1;
	for (i = 0; i < length; i = i + 1)
		{
		sum = sum ^ (((char )data[i]) << 8);
		for (bit = 0; bit < 8; bit = bit + 1)
			{
			if ((sum & -32768) != 0)
				{
				sum = (sum << 1) ^ 4129;
				}
			else
				{
				sum = sum << 1;
				}
			}
		}
	return sum;
	}

int fletcher(char *data, int length)
	{
	int low;
	int high;
	int i;

	low = 0;
	high = 0;
	for (i = 0; i < length; i = i + 1)
		{
		low = ((unsigned int )(low + ((int )(char )data[i]))) % ((unsigned int )255);
		high = ((unsigned int )(high + low)) % ((unsigned int )255);
		}
	return (high << 8) | low;
	}

int count_good(void)
	{
	int count;
	struct Frame (*__range1)[2];
	struct Frame *__begin1;
	struct Frame *__end1;
	struct Frame *sample;
	struct Frame agg_tmp;

	count = 0;
	__range1 = (struct Frame (*)[2])(&_ZL7samples);
	__begin1 = *((struct Frame (*)[2])(&_ZL7samples));
	for (__end1 = ((struct Frame (*)[2])(&_ZL7samples))[1]; __begin1 != __end1; __begin1 = __begin1 + 1)
		{
		sample = __begin1;
		agg_tmp = *sample;
		if ((_ZL5check5Frame(&agg_tmp)) == 0)
			{
			count = count + 1;
			}
		}
	return count;
	}
// calls: _ZL5check5Frame, 

static int _ZL5check5Frame(struct Frame *frame)
	{
	int call;

	if (((unsigned int )(char )frame->f1) > ((unsigned int )12))
		{
		return 1;
		}
	call = _ZN3crc2ofEPKhi(frame->f2, (char )frame->f1);
	return (call == (frame->f3)) ? 0 : 2;
	}
// calls: _ZN3crc2ofEPKhi, 

char tables_agree(char *data, int length)
	{
	int call;

	call = _ZN3crc2ofEPKhi(data, length);
	return call == (_ZN3crc4slowEPKhi(data, length));
	}
// calls: _ZN3crc2ofEPKhi, _ZN3crc4slowEPKhi, 

