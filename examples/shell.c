// quarl V4.1.6
// source file: shell.cpp

/*	structures definitions
 */
struct shell__Parser {
	char *f0;
	char f1;
	char f2;
	};

struct shell__Variable {
	struct shell__Variable *f0;
	char f1[8];
	long f2;
	};

struct shell__Command {
	char *f0;
	void (*f1)(struct shell__Parser *);
	};


/*	externs definitions
 */
extern void put_char(char );	//count=9
void _ZN5shell6ParserC2EPKc(struct shell__Parser *, char *);	//count=2
void _ZN5shell6Parser4skipEv(struct shell__Parser *);	//count=4
void _ZN5shell6Parser4wordEPci(struct shell__Parser *, char *, int );	//count=6
static char _ZN5shellL4sameEPKcS1_(char *, char *);	//count=4
static char _ZN5shellL9is_letterEc(signed char );	//count=2
static char _ZN5shellL8is_digitEc(signed char );	//count=6
static void _ZN5shellL8do_printERNS_6ParserE(struct shell__Parser *);	//count=1
static void _ZN5shellL6do_letERNS_6ParserE(struct shell__Parser *);	//count=1
static void _ZN5shellL7do_listERNS_6ParserE(struct shell__Parser *);	//count=1
char _ZN5shell6Parser6acceptEc(struct shell__Parser *, signed char );	//count=12
long _ZN5shell6Parser6numberEv(struct shell__Parser *);	//count=2
long _ZN5shell6Parser6factorEv(struct shell__Parser *);	//count=6
long _ZN5shell6Parser4termEv(struct shell__Parser *);	//count=4
long _ZN5shell6Parser10expressionEv(struct shell__Parser *);	//count=4
char _ZNK5shell6Parser2okEv(struct shell__Parser *);	//count=3
static void _ZN5shellL5printEl(long );	//count=4
static void _ZN5shellL5printEPKc(char *);	//count=4
static struct shell__Variable *_ZN5shellL4findEPKc(char *);	//count=3
static struct shell__Variable *_ZN5shellL4makeEPKc(char *);	//count=2

/*	variables definitions
 */
static const char _str[6] = {"print"};	// count=1
static const char _str_1[4] = {"let"};	// count=1
static const char _str_2[5] = {"list"};	// count=1
struct shell__Command _ZN5shellL8commandsE[3];
static const char _str_3[6] = {"error"};	// count=1
static struct shell__Variable *_ZN5shellL9variablesE;	// count=4
static const char _str_4[6] = {"no =\n"};	// count=1
static int _ZN5shellL4usedE = 0;	// count=3
static struct shell__Variable _ZN5shellL4poolE[6];	// count=1
static const char _str_5[4] = {" = "};	// count=1
static const struct shell__Command _ZN5shellL8commandsE[3] = {{_str, &_ZN5shellL8do_printERNS_6ParserE}, {_str_1, &_ZN5shellL6do_letERNS_6ParserE}, {_str_2, &_ZN5shellL7do_listERNS_6ParserE}};	// count=3

/*	functions definitions
 */
void @inline _ZN5shell6ParserC2EPKc(struct shell__Parser *this, char *line)
	{
	this->f0 = line;
	this->f1 = 0;
	return;
	}

void @inline _ZN5shell6Parser4skipEv(struct shell__Parser *this)
	{
	while (((signed char )*(this->f0)) == 32)
		{
		this->f0 = (this->f0) + 1;
		}
	return;
	}

void @inline _ZN5shell6Parser4wordEPci(struct shell__Parser *this, char *into, int size)
	{
	int length;

	_ZN5shell6Parser4skipEv(this);
	length = 0;
	while ((_ZN5shellL9is_letterEc(*(this->f0))) || (_ZN5shellL8is_digitEc(*(this->f0))) != 0)
		{
		if (length < (size - 1))
			{
			into[length++] = *(this->f0);
			}
		this->f0 = (this->f0) + 1;
		}
	into[length] = 0;
	return;
	}
// calls: _ZN5shell6Parser4skipEv, _ZN5shellL9is_letterEc, _ZN5shellL8is_digitEc, 

char @inline _ZN5shell6Parser6acceptEc(struct shell__Parser *this, signed char c)
	{
	_ZN5shell6Parser4skipEv(this);
	if (((signed char )*(this->f0)) != ((signed char )c))
		{
		return 0;
		}
	this->f0 = (this->f0) + 1;
	return 1;
	}
// calls: _ZN5shell6Parser4skipEv, 

long @inline _ZN5shell6Parser6numberEv(struct shell__Parser *this)
	{
	long value;

	value = 0;
	while (_ZN5shellL8is_digitEc(*(this->f0)))
		{
		value = (value * 10) + ((long )(int )(((signed char )*(this->f0)++) - 48));
		}
	return value;
	}
// calls: _ZN5shellL8is_digitEc, 

char @inline _ZNK5shell6Parser2okEv(struct shell__Parser *this)
	{
	return (this->f1) == 0;
	}

char execute(char *line)
	{
	struct shell__Parser parser;
	char name[8];
	struct shell__Command (*__range1)[3];
	struct shell__Command *__begin1;
	struct shell__Command *__end1;
	struct shell__Command *command;

	_ZN5shell6ParserC2EPKc(&parser, line);
	_ZN5shell6Parser4wordEPci(&parser, name, 8);
	__range1 = &_ZN5shellL8commandsE;
	__begin1 = _ZN5shellL8commandsE;
	for (__end1 = (&_ZN5shellL8commandsE)[1]; __begin1 != __end1; __begin1 = __begin1 + 1)
		{
		command = __begin1;
		if (_ZN5shellL4sameEPKcS1_(command->f0, name))
			{
			(command->f1)(&parser);
			return 1;
			}
		}
	return 0;
	}
// calls: _ZN5shell6ParserC2EPKc, _ZN5shell6Parser4wordEPci, _ZN5shellL4sameEPKcS1_, 

static char _ZN5shellL4sameEPKcS1_(char *a, char *b)
	{
	while ((*a) != 0 && ((signed char )*a) == ((signed char )*b))
		{
		a = a + 1;
		b = b + 1;
		}
	return ((signed char )*a) == ((signed char )*b);
	}

static char _ZN5shellL9is_letterEc(signed char c)
	{
	return ((((signed char )c) >= 97 && ((signed char )c) <= 122) || (((signed char )c) >= 65 && ((signed char )c) <= 90)) || ((signed char )c) == 95;
	}

static char _ZN5shellL8is_digitEc(signed char c)
	{
	return ((signed char )c) >= 48 && ((signed char )c) <= 57;
	}

static void _ZN5shellL8do_printERNS_6ParserE(struct shell__Parser *parser)
	{
	long value;

	value = _ZN5shell6Parser10expressionEv(parser);
	if (_ZNK5shell6Parser2okEv(parser))
		{
		_ZN5shellL5printEl(value);
		}
	else
		{
		_ZN5shellL5printEPKc(_str_3);
		}
	put_char(10);
	return;
	}
// calls: _ZN5shell6Parser10expressionEv, _ZNK5shell6Parser2okEv, _ZN5shellL5printEl, _ZN5shellL5printEPKc, put_char, 

static void _ZN5shellL6do_letERNS_6ParserE(struct shell__Parser *parser)
	{
	char name[8];
	long value;
	struct shell__Variable *variable;

	_ZN5shell6Parser4wordEPci(parser, name, 8);
	if (_ZN5shell6Parser6acceptEc(parser, 61))
		{
		value = _ZN5shell6Parser10expressionEv(parser);
		variable = _ZN5shellL4findEPKc(name);
		if (variable == 0)
			{
			variable = _ZN5shellL4makeEPKc(name);
			}
		if (variable != 0 && (_ZNK5shell6Parser2okEv(parser)))
			{
			variable->f2 = value;
			}
		}
	else
		{
		_ZN5shellL5printEPKc(_str_4);
		}
	return;
	}
// calls: _ZN5shell6Parser4wordEPci, _ZN5shell6Parser6acceptEc, _ZN5shell6Parser10expressionEv, _ZN5shellL4findEPKc, _ZN5shellL4makeEPKc, _ZNK5shell6Parser2okEv, _ZN5shellL5printEPKc, 

static void _ZN5shellL7do_listERNS_6ParserE(struct shell__Parser *_unused0_)
	{
	struct shell__Variable *v;

	for (v = _ZN5shellL9variablesE; v != 0; v = v->f0)
		{
		_ZN5shellL5printEPKc(v->f1);
		_ZN5shellL5printEPKc(_str_5);
		_ZN5shellL5printEl(v->f2);
		put_char(10);
		}
	return;
	}
// calls: _ZN5shellL5printEPKc, _ZN5shellL5printEl, put_char, 

long @weak _ZN5shell6Parser6factorEv(struct shell__Parser *this)
	{
	long value;
	char name[8];
	struct shell__Variable *variable;

	if (_ZN5shell6Parser6acceptEc(this, 45))
		{
		return -(_ZN5shell6Parser6factorEv(this));
		}
	if (_ZN5shell6Parser6acceptEc(this, 40))
		{
		value = _ZN5shell6Parser10expressionEv(this);
		if ((_ZN5shell6Parser6acceptEc(this, 41)) == 0)
			{
			this->f1 = 1;
			}
		return value;
		}
	if (_ZN5shellL8is_digitEc(*(this->f0)))
		{
		return _ZN5shell6Parser6numberEv(this);
		}
	_ZN5shell6Parser4wordEPci(this, name, 8);
	variable = _ZN5shellL4findEPKc(name);
	if (variable != 0)
		{
		return variable->f2;
		}
	this->f1 = 1;
	return 0;
	}
// calls: _ZN5shell6Parser6acceptEc, _ZN5shell6Parser6factorEv, _ZN5shell6Parser10expressionEv, _ZN5shellL8is_digitEc, _ZN5shell6Parser6numberEv, _ZN5shell6Parser4wordEPci, _ZN5shellL4findEPKc, 

long @weak _ZN5shell6Parser4termEv(struct shell__Parser *this)
	{
	long value;
	long by;

	value = _ZN5shell6Parser6factorEv(this);
	for (;;)
		{
		if (_ZN5shell6Parser6acceptEc(this, 42))
			{
			value = value * (_ZN5shell6Parser6factorEv(this));
			}
		else
			{
			if (_ZN5shell6Parser6acceptEc(this, 47))
				{
				by = _ZN5shell6Parser6factorEv(this);
				if (by == 0)
					{
					this->f1 = 1;
					}
				else
					{
					value = value / by;
					}
				}
			else
				{
				return value;
				}
			}
		}
	}
// calls: _ZN5shell6Parser6factorEv, _ZN5shell6Parser6acceptEc, 

long @weak _ZN5shell6Parser10expressionEv(struct shell__Parser *this)
	{
	long value;

	value = _ZN5shell6Parser4termEv(this);
	for (;;)
		{
		if (_ZN5shell6Parser6acceptEc(this, 43))
			{
			value = value + (_ZN5shell6Parser4termEv(this));
			}
		else
			{
			if (_ZN5shell6Parser6acceptEc(this, 45))
				{
				value = value - (_ZN5shell6Parser4termEv(this));
				}
			else
				{
				return value;
				}
			}
		}
	}
// calls: _ZN5shell6Parser4termEv, _ZN5shell6Parser6acceptEc, 

static void _ZN5shellL5printEl(long value)
	{
	if (value < 0)
		{
		put_char(45);
		value = -value;
		}
	if (value > 9)
		{
		_ZN5shellL5printEl(value / 10);
		}
	put_char((char )(48 + (value % 10)));
	return;
	}
// calls: put_char, _ZN5shellL5printEl, 

static void _ZN5shellL5printEPKc(char *text)
	{
	while ((*text) != 0)
		{
		put_char(*text++);
		}
	return;
	}
// calls: put_char, 

static struct shell__Variable *_ZN5shellL4findEPKc(char *name)
	{
	struct shell__Variable *v;

	for (v = _ZN5shellL9variablesE; v != 0; v = v->f0)
		{
		if (_ZN5shellL4sameEPKcS1_(v->f1, name))
			{
			return v;
			}
		}
	return 0;
	}
// calls: _ZN5shellL4sameEPKcS1_, 

static struct shell__Variable *_ZN5shellL4makeEPKc(char *name)
	{
	struct shell__Variable *fresh;
	int i;

	if (_ZN5shellL4usedE == 6)
		{
		return 0;
		}
	fresh = &_ZN5shellL4poolE[_ZN5shellL4usedE++];
	i = 0;
	while ((name[i]) != 0 && i < 7)
		{
		(fresh->f1)[i] = name[i];
		i = i + 1;
		}
	(fresh->f1)[i] = 0;
	fresh->f0 = _ZN5shellL9variablesE;
	_ZN5shellL9variablesE = fresh;
	return fresh;
	}

