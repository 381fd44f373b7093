// quarl V4.1.6
// source file: blink.cpp

/*	structures definitions
 */
struct Output {
	long (**f0)();
	int f1;
	int f2;
	int f3;
	};

struct Relay {
	struct Output f0;
	int f1;
	char f2;
	char f3;
	};

struct unnamed_1 {
	char *f0[4];
	};

struct unnamed_2 {
	long f0;
	void (*f1)(void);
	char *f2;
	};

struct Led {
	struct Output f0;
	};


/*	externs definitions
 */
extern void wait_for_tick(void);	//count=2
extern void __cxa_pure_virtual(void);	//count=1
static void __cxx_global_var_init(void);	//count=2
void _ZN6Output13register_selfEv(struct Output *);	//count=2
void _ZN6OutputC2Ei(struct Output *, int );	//count=4
void _ZN3LedC2Ei(struct Led *, int );	//count=4
static void __cxx_global_var_init_1(void);	//count=2
static void __cxx_global_var_init_2(void);	//count=2
void _ZN5RelayC2Eii(struct Relay *, int , int );	//count=2
void _ZN6Output4tickEv(struct Output *);	//count=2
int _ZNK6Output8switchesEv(struct Output *);	//count=2
void _ZN4port3PinIL_ZNS_5out_aEELi3EE3setEv(void);	//count=2
void _ZN4port3PinIL_ZNS_5out_aEELi3EE5clearEv(void);	//count=2
void _ZN3Led5writeEb(struct Led *, char );	//count=1
char _ZN4port3PinIL_ZNS_5out_aEELi3EE4readEv(void);	//count=2
char _ZNK3Led5stateEv(struct Led *);	//count=1
void _ZN4port3PinIL_ZNS_5out_bEELi0EE3setEv(void);	//count=2
void _ZN4port3PinIL_ZNS_5out_bEELi0EE5clearEv(void);	//count=2
void _ZN5Relay5writeEb(struct Relay *, char );	//count=1
char _ZNK5Relay5stateEv(struct Relay *);	//count=1
static void _GLOBAL__sub_I_blink_cpp(void);	//count=1

/*	variables definitions
 */
char _ZN4port5out_aE = 0;	// count=5
char _ZN4port5out_bE = 0;	// count=4
struct Output *_ZN6Output3allE[4];	// count=3
int _ZN6Output5countE = 0;	// count=5
static struct Led _ZL6status;	// count=1
static struct Led _ZL5alarm;	// count=1
static struct Relay _ZL4pump;	// count=1
static struct unnamed_1 _ZTV3Led;
static struct unnamed_1 _ZTV6Output;
static struct unnamed_1 _ZTV5Relay;
static const struct unnamed_1 _ZTV3Led = {{0, 0, (char *)(&_ZN3Led5writeEb), (char *)(&_ZNK3Led5stateEv)}};	// count=1
static const struct unnamed_1 _ZTV6Output = {{0, 0, (char *)(&__cxa_pure_virtual), (char *)(&__cxa_pure_virtual)}};	// count=1
static const struct unnamed_1 _ZTV5Relay = {{0, 0, (char *)(&_ZN5Relay5writeEb), (char *)(&_ZNK5Relay5stateEv)}};	// count=1
#pragma section const {_construct_}
static const struct unnamed_2 llvm_global_ctors[1] = {{65535, &_GLOBAL__sub_I_blink_cpp, 0}};	// count=0
#pragma section const {}

/*	functions definitions
 */
void @inline _ZN6Output13register_selfEv(struct Output *this)
	{
	if (_ZN6Output5countE < 4)
		{
		_ZN6Output3allE[_ZN6Output5countE++] = this;
		}
	return;
	}

void @inline _ZN6OutputC2Ei(struct Output *this, int on_ticks)
	{
	*((long (***)())this) = (long (**)())(&(_ZTV6Output.f0)[2]);
	this->f1 = on_ticks;
	this->f2 = on_ticks;
	this->f3 = 0;
	_ZN6Output13register_selfEv(this);
	return;
	}
// calls: _ZN6Output13register_selfEv, 

void @inline _ZN3LedC2Ei(struct Led *this, int on_ticks)
	{
	_ZN6OutputC2Ei((struct Output *)this, on_ticks);
	*((long (***)())this) = (long (**)())(&(_ZTV3Led.f0)[2]);
	return;
	}
// calls: _ZN6OutputC2Ei, 

void @inline _ZN5RelayC2Eii(struct Relay *this, int on_ticks, int hold)
	{
	_ZN6OutputC2Ei((struct Output *)this, on_ticks);
	*((long (***)())this) = (long (**)())(&(_ZTV5Relay.f0)[2]);
	this->f1 = hold;
	this->f2 = 0;
	return;
	}
// calls: _ZN6OutputC2Ei, 

void @inline _ZN6Output4tickEv(struct Output *this)
	{
	char lnot;

	if ((this->f2 = (this->f2) - 1) > 0)
		{
		return;
		}
	this->f2 = this->f1;
	this->f3 = (this->f3) + 1;
	lnot = (((*((char (***)(struct Output *))this))[1])(this)) == 0;
	(**((void (***)(struct Output *, char ))this))(this, lnot);
	return;
	}

int @inline _ZNK6Output8switchesEv(struct Output *this)
	{
	return this->f3;
	}

void @inline _ZN4port3PinIL_ZNS_5out_aEELi3EE3setEv(void)
	{
	*((char volatile *)(&_ZN4port5out_aE)) = ((char )*((char volatile *)(&_ZN4port5out_aE))) | 8;
	return;
	}

void @inline _ZN4port3PinIL_ZNS_5out_aEELi3EE5clearEv(void)
	{
	*((char volatile *)(&_ZN4port5out_aE)) = ((char )*((char volatile *)(&_ZN4port5out_aE))) & -9;
	return;
	}

char @inline _ZN4port3PinIL_ZNS_5out_aEELi3EE4readEv(void)
	{
	return (((char )*((char volatile *)(&_ZN4port5out_aE))) & 8) != 0;
	}

void @inline _ZN4port3PinIL_ZNS_5out_bEELi0EE3setEv(void)
	{
	*((char volatile *)(&_ZN4port5out_bE)) = ((char )*((char volatile *)(&_ZN4port5out_bE))) | 1;
	return;
	}

void @inline _ZN4port3PinIL_ZNS_5out_bEELi0EE5clearEv(void)
	{
	*((char volatile *)(&_ZN4port5out_bE)) = ((char )*((char volatile *)(&_ZN4port5out_bE))) & -2;
	return;
	}

static void __cxx_global_var_init(void)
	{
	_ZN3LedC2Ei(&_ZL6status, 3);
	return;
	}
// calls: _ZN3LedC2Ei, 

static void __cxx_global_var_init_1(void)
	{
	_ZN3LedC2Ei(&_ZL5alarm, 5);
	return;
	}
// calls: _ZN3LedC2Ei, 

static void __cxx_global_var_init_2(void)
	{
	_ZN5RelayC2Eii(&_ZL4pump, 10, 2);
	return;
	}
// calls: _ZN5RelayC2Eii, 

int run(int ticks)
	{
	int t;
	int i;
	int sum;
	int i7;

	for (t = 0; t < ticks; t = t + 1)
		{
		wait_for_tick();
		for (i = 0; i < _ZN6Output5countE; i = i + 1)
			{
			_ZN6Output4tickEv(_ZN6Output3allE[i]);
			}
		}
	sum = 0;
	for (i7 = 0; i7 < _ZN6Output5countE; i7 = i7 + 1)
		{
		sum = sum + (_ZNK6Output8switchesEv(_ZN6Output3allE[i7]));
		}
	return sum;
	}
// calls: wait_for_tick, _ZN6Output4tickEv, _ZNK6Output8switchesEv, 

void _ZN3Led5writeEb(struct Led *this, char on)
	{
	if (on)
		{
		_ZN4port3PinIL_ZNS_5out_aEELi3EE3setEv();
		}
	else
		{
		_ZN4port3PinIL_ZNS_5out_aEELi3EE5clearEv();
		}
	return;
	}
// calls: _ZN4port3PinIL_ZNS_5out_aEELi3EE3setEv, _ZN4port3PinIL_ZNS_5out_aEELi3EE5clearEv, 

char _ZNK3Led5stateEv(struct Led *this)
	{
	return _ZN4port3PinIL_ZNS_5out_aEELi3EE4readEv();
	}
// calls: _ZN4port3PinIL_ZNS_5out_aEELi3EE4readEv, 

void _ZN5Relay5writeEb(struct Relay *this, char wanted)
	{
	if (wanted && (this->f1) > 0)
		{
		this->f1 = (this->f1) - 1;
		return;
		}
	this->f2 = wanted;
	if (this->f2)
		{
		_ZN4port3PinIL_ZNS_5out_bEELi0EE3setEv();
		}
	else
		{
		_ZN4port3PinIL_ZNS_5out_bEELi0EE5clearEv();
		}
	return;
	}
// calls: _ZN4port3PinIL_ZNS_5out_bEELi0EE3setEv, _ZN4port3PinIL_ZNS_5out_bEELi0EE5clearEv, 

char _ZNK5Relay5stateEv(struct Relay *this)
	{
	return this->f2;
	}

static void _GLOBAL__sub_I_blink_cpp(void)
	{
	__cxx_global_var_init();
	__cxx_global_var_init_1();
	__cxx_global_var_init_2();
	return;
	}
// calls: __cxx_global_var_init, __cxx_global_var_init_1, __cxx_global_var_init_2, 

