// quarl V4.1.6
// source file: uart.cpp

/*	structures definitions
 */
struct Ring {
	char f0[16];
	char f1;
	char f2;
	int f3;
	};

struct Ring_0 {
	char f0[32];
	char f1;
	char f2;
	int f3;
	};

struct Registers {
	char f0;
	char f1;
	};

struct Uart {
	struct Registers *f0;
	struct Ring f1;
	struct Ring_0 f2;
	int f3;
	};


/*	externs definitions
 */
char _ZN4RingIhLi32EE4nextEh(char );	//count=4
char _ZNK4RingIhLi32EE4fullEv(struct Ring_0 *);	//count=2
char _ZN4RingIhLi32EE3putERKh(struct Ring_0 *, char *);	//count=5
struct Uart *_ZN4UartlsEPKc(struct Uart *, char *);	//count=2
struct Uart *_ZN4UartlsEi(struct Uart *, int );	//count=3

/*	variables definitions
 */
struct Uart console;	// count=1
static const char _str[7] = {"hello "};	// count=1
static const char _str_1[9] = {", visit "};	// count=1
static const char _str_2[2] = {"\n"};	// count=1

/*	functions definitions
 */
char @inline _ZN4RingIhLi32EE4nextEh(char at)
	{
	return (char )(((((char )at) + 1) < 32) ? (((char )at) + 1) : 0);
	}

char @inline _ZNK4RingIhLi32EE4fullEv(struct Ring_0 *this)
	{
	int conv;

	conv = (char )_ZN4RingIhLi32EE4nextEh(this->f1);
	return conv == ((char )this->f2);
	}
// calls: _ZN4RingIhLi32EE4nextEh, 

char @inline _ZN4RingIhLi32EE3putERKh(struct Ring_0 *this, char *value)
	{
	if (_ZNK4RingIhLi32EE4fullEv(this))
		{
		this->f3 = (this->f3) + 1;
		return 0;
		}
	(this->f0)[(int )(char )this->f1] = *value;
	this->f1 = _ZN4RingIhLi32EE4nextEh(this->f1);
	return 1;
	}
// calls: _ZNK4RingIhLi32EE4fullEv, _ZN4RingIhLi32EE4nextEh, 

struct Uart *@inline _ZN4UartlsEPKc(struct Uart *this, char *text)
	{
	char ref_tmp;

	while ((*text) != 0)
		{
		ref_tmp = *text++;
		_ZN4RingIhLi32EE3putERKh(&this->f2, &ref_tmp);
		}
	return this;
	}
// calls: _ZN4RingIhLi32EE3putERKh, 

struct Uart *@inline _ZN4UartlsEi(struct Uart *this, int value)
	{
	char ref_tmp;
	char ref_tmp7;

	if (value < 0)
		{
		ref_tmp = 45;
		_ZN4RingIhLi32EE3putERKh(&this->f2, &ref_tmp);
		value = -value;
		}
	if (value >= 10)
		{
		_ZN4UartlsEi(this, value / 10);
		}
	ref_tmp7 = 48 + (value % 10);
	_ZN4RingIhLi32EE3putERKh(&this->f2, &ref_tmp7);
	return this;
	}
// calls: _ZN4RingIhLi32EE3putERKh, _ZN4UartlsEi, 

void greet(char *name, int visits)
	{
	_ZN4UartlsEPKc(_ZN4UartlsEi(_ZN4UartlsEPKc(_ZN4UartlsEPKc(_ZN4UartlsEPKc(&console, _str), name), _str_1), visits), _str_2);
	return;
	}
// calls: _ZN4UartlsEPKc, _ZN4UartlsEi, 

