// quarl V4.1.6
// source file: control.cpp
#include <string.h>

/*	structures definitions
 */
struct Fixed {
	long raw;
	};

struct Gains {
	struct Fixed proportional;
	struct Fixed integral;
	struct Fixed derivative;
	};

struct Limits {
	int low;
	int high;
	};

struct unnamed_1 {
	long f0;
	void (*f1)(void);
	char *f2;
	};

struct Controller {
	struct Gains gains;
	struct Limits limits;
	struct Fixed sum;
	struct Fixed last;
	};


/*	externs definitions
 */
extern int read_temperature(void);	//count=2
extern void set_heater(int );	//count=3
static void __cxx_global_var_init(void);	//count=2
void _ZN5FixedC2Ei(struct Fixed *, int );	//count=13
void _ZN5FixedC2Ev(struct Fixed *);	//count=2
void _ZN5Fixed8from_rawEl(struct Fixed *, long );	//count=8
static void __cxx_global_var_init_1(void);	//count=2
void _ZN10ControllerC2ERK5GainsRK6Limits(struct Controller *, struct Gains *, struct Limits *);	//count=2
void _ZN10Controller5resetEv(struct Controller *);	//count=2
void _ZNK5FixedmiERKS_(struct Fixed *, struct Fixed *, struct Fixed *);	//count=3
void _ZNK5FixedmlERKS_(struct Fixed *, struct Fixed *, struct Fixed *);	//count=4
struct Fixed *_ZN5FixedpLERKS_(struct Fixed *, struct Fixed *);	//count=2
char _ZNK5FixedltERKS_(struct Fixed *, struct Fixed *);	//count=2
char _ZNK5FixedgtERKS_(struct Fixed *, struct Fixed *);	//count=2
void _Z5clampI5FixedET_RKS1_S3_S3_(struct Fixed *, struct Fixed *, struct Fixed *, struct Fixed *);	//count=2
void _ZNK5FixedplERKS_(struct Fixed *, struct Fixed *, struct Fixed *);	//count=3
int _ZNK5Fixed5wholeEv(struct Fixed *);	//count=2
int _Z5clampIiET_RKS0_S2_S2_(int *, int *, int *);	//count=2
int _ZN10Controller4stepEii(struct Controller *, int , int );	//count=2
static void _GLOBAL__sub_I_control_cpp(void);	//count=1

/*	variables definitions
 */
static struct Gains _ZL12heater_gains;	// count=4
static struct Controller _ZL6heater;	// count=3
static const struct Limits _ZL13heater_limits = {0, 100};	// count=1
#pragma section const {_construct_}
static const struct unnamed_1 llvm_global_ctors[1] = {{65535, &_GLOBAL__sub_I_control_cpp, 0}};	// count=0
#pragma section const {}

/*	functions definitions
 */
void @inline _ZN5FixedC2Ei(struct Fixed *this, int whole)
	{
	this->raw = (int )(whole * 256);
	return;
	}

void @inline _ZN5FixedC2Ev(struct Fixed *this)
	{
	this->raw = 0;
	return;
	}

void @inline _ZN5Fixed8from_rawEl(struct Fixed *agg_result, long bits)
	{
	_ZN5FixedC2Ev(agg_result);
	agg_result->raw = bits;
	return;
	}
// calls: _ZN5FixedC2Ev, 

void @inline _ZN10ControllerC2ERK5GainsRK6Limits(struct Controller *this, struct Gains *wanted, struct Limits *range)
	{
	this->gains = *wanted;
	this->limits = *range;
	_ZN5FixedC2Ei(&this->sum, 0);
	_ZN5FixedC2Ei(&this->last, 0);
	return;
	}
// calls: _ZN5FixedC2Ei, 

void @inline _ZN10Controller5resetEv(struct Controller *this)
	{
	struct Fixed ref_tmp;
	struct Fixed ref_tmp2;

	_ZN5FixedC2Ei(&ref_tmp, 0);
	this->sum = ref_tmp;
	_ZN5FixedC2Ei(&ref_tmp2, 0);
	this->last = ref_tmp2;
	return;
	}
// calls: _ZN5FixedC2Ei, 

void @inline _ZNK5FixedmiERKS_(struct Fixed *agg_result, struct Fixed *this, struct Fixed *other)
	{
	_ZN5Fixed8from_rawEl(agg_result, (this->raw) - (other->raw));
	return;
	}
// calls: _ZN5Fixed8from_rawEl, 

void @inline _ZNK5FixedmlERKS_(struct Fixed *agg_result, struct Fixed *this, struct Fixed *other)
	{
	_ZN5Fixed8from_rawEl(agg_result, ((this->raw) * (other->raw)) / 256);
	return;
	}
// calls: _ZN5Fixed8from_rawEl, 

struct Fixed *@inline _ZN5FixedpLERKS_(struct Fixed *this, struct Fixed *other)
	{
	this->raw = (this->raw) + (other->raw);
	return this;
	}

char @inline _ZNK5FixedltERKS_(struct Fixed *this, struct Fixed *other)
	{
	return (this->raw) < (other->raw);
	}

char @inline _ZNK5FixedgtERKS_(struct Fixed *this, struct Fixed *other)
	{
	return (this->raw) > (other->raw);
	}

void @inline _Z5clampI5FixedET_RKS1_S3_S3_(struct Fixed *agg_result, struct Fixed *value, struct Fixed *low, struct Fixed *high)
	{
	if (_ZNK5FixedltERKS_(value, low))
		{
		*agg_result = *low;
		return;
		}
	if (_ZNK5FixedgtERKS_(value, high))
		{
		*agg_result = *high;
		return;
		}
	*agg_result = *value;
	return;
	}
// calls: _ZNK5FixedltERKS_, _ZNK5FixedgtERKS_, 

void @inline _ZNK5FixedplERKS_(struct Fixed *agg_result, struct Fixed *this, struct Fixed *other)
	{
	_ZN5Fixed8from_rawEl(agg_result, (this->raw) + (other->raw));
	return;
	}
// calls: _ZN5Fixed8from_rawEl, 

int @inline _ZNK5Fixed5wholeEv(struct Fixed *this)
	{
	return (int )((this->raw) / 256);
	}

int @inline _Z5clampIiET_RKS0_S2_S2_(int *value, int *low, int *high)
	{
	if ((*value) < (*low))
		{
		return *low;
		}
	if ((*value) > (*high))
		{
		return *high;
		}
	return *value;
	}

int @inline _ZN10Controller4stepEii(struct Controller *this, int target, int measured)
	{
	struct Fixed error;
	struct Fixed ref_tmp;
	struct Fixed ref_tmp2;
	struct Fixed ref_tmp3;
	struct Fixed ref_tmp4;
	struct Fixed ref_tmp6;
	struct Fixed ref_tmp7;
	struct Fixed change;
	struct Fixed drive;
	struct Fixed ref_tmp11;
	struct Fixed ref_tmp12;
	struct Fixed ref_tmp15;
	int ref_tmp17;

	_ZN5FixedC2Ei(&ref_tmp, target);
	_ZN5FixedC2Ei(&ref_tmp2, measured);
	_ZNK5FixedmiERKS_(&error, &ref_tmp, &ref_tmp2);
	_ZNK5FixedmlERKS_(&ref_tmp3, &error, &this->gains.integral);
	_ZN5FixedpLERKS_(&this->sum, &ref_tmp3);
	_ZN5FixedC2Ei(&ref_tmp6, this->limits.low);
	_ZN5FixedC2Ei(&ref_tmp7, this->limits.high);
	_Z5clampI5FixedET_RKS1_S3_S3_(&ref_tmp4, &this->sum, &ref_tmp6, &ref_tmp7);
	this->sum = ref_tmp4;
	_ZNK5FixedmiERKS_(&change, &error, &this->last);
	this->last = error;
	_ZNK5FixedmlERKS_(&ref_tmp12, &error, &this->gains.proportional);
	_ZNK5FixedplERKS_(&ref_tmp11, &ref_tmp12, &this->sum);
	_ZNK5FixedmlERKS_(&ref_tmp15, &change, &this->gains.derivative);
	_ZNK5FixedplERKS_(&drive, &ref_tmp11, &ref_tmp15);
	ref_tmp17 = _ZNK5Fixed5wholeEv(&drive);
	return _Z5clampIiET_RKS0_S2_S2_(&ref_tmp17, &this->limits.low, &this->limits.high);
	}
// calls: _ZN5FixedC2Ei, _ZNK5FixedmiERKS_, _ZNK5FixedmlERKS_, _ZN5FixedpLERKS_, _Z5clampI5FixedET_RKS1_S3_S3_, _ZNK5FixedplERKS_, _ZNK5Fixed5wholeEv, _Z5clampIiET_RKS0_S2_S2_, 

static void __cxx_global_var_init(void)
	{
	_ZN5FixedC2Ei(&_ZL12heater_gains.proportional, 2);
	_ZN5Fixed8from_rawEl(&_ZL12heater_gains.integral, 16);
	_ZN5Fixed8from_rawEl(&_ZL12heater_gains.derivative, 64);
	return;
	}
// calls: _ZN5FixedC2Ei, _ZN5Fixed8from_rawEl, 

static void __cxx_global_var_init_1(void)
	{
	_ZN10ControllerC2ERK5GainsRK6Limits(&_ZL6heater, &_ZL12heater_gains, &_ZL13heater_limits);
	return;
	}
// calls: _ZN10ControllerC2ERK5GainsRK6Limits, 

void control(int target)
	{
	int measured;

	measured = read_temperature();
	if (measured < -40 || measured > 125)
		{
		_ZN10Controller5resetEv(&_ZL6heater);
		set_heater(0);
		return;
		}
	set_heater(_ZN10Controller4stepEii(&_ZL6heater, target, measured));
	return;
	}
// calls: read_temperature, _ZN10Controller5resetEv, set_heater, _ZN10Controller4stepEii, 

static void _GLOBAL__sub_I_control_cpp(void)
	{
	__cxx_global_var_init();
	__cxx_global_var_init_1();
	return;
	}
// calls: __cxx_global_var_init, __cxx_global_var_init_1, 

