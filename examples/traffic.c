// quarl V4.1.6
// source file: traffic.cpp

/*	structures definitions
 */
struct traffic__Crossing {
	int f0;
	int f1;
	char f2;
	char f3;
	int f4;
	};

struct traffic__Phase {
	char f0;
	int f1;
	int (*f2)(struct traffic__Crossing *);
	};


/*	externs definitions
 */
void _ZN7traffic6handleERNS_8CrossingENS_5EventE(struct traffic__Crossing *, int );	//count=2
static void _ZN7trafficL4stepERNS_8CrossingE(struct traffic__Crossing *);	//count=2
static void _ZN7trafficL5enterERNS_8CrossingENS_5StateE(struct traffic__Crossing *, int );	//count=3
static int _ZN7trafficL9after_redERKNS_8CrossingE(struct traffic__Crossing *);	//count=1
static int _ZN7trafficL11after_northERKNS_8CrossingE(struct traffic__Crossing *);	//count=1
static int _ZN7trafficL18after_north_yellowERKNS_8CrossingE(struct traffic__Crossing *);	//count=1
static int _ZN7trafficL10after_eastERKNS_8CrossingE(struct traffic__Crossing *);	//count=1
static int _ZN7trafficL6to_redERKNS_8CrossingE(struct traffic__Crossing *);	//count=1

/*	variables definitions
 */
struct traffic__Phase _ZN7trafficL6phasesE[6];
static struct traffic__Crossing _ZL8crossing = {0, 1, 0, 0, 0};	// count=2
static const struct traffic__Phase _ZN7trafficL6phasesE[6] = {{9, 2, &_ZN7trafficL9after_redERKNS_8CrossingE}, {33, 30, &_ZN7trafficL11after_northERKNS_8CrossingE}, {17, 4, &_ZN7trafficL18after_north_yellowERKNS_8CrossingE}, {12, 20, &_ZN7trafficL10after_eastERKNS_8CrossingE}, {10, 4, &_ZN7trafficL6to_redERKNS_8CrossingE}, {73, 12, &_ZN7trafficL6to_redERKNS_8CrossingE}};	// count=3

/*	functions definitions
 */
void _ZN7traffic6handleERNS_8CrossingENS_5EventE(struct traffic__Crossing *crossing, int event)
	{
	switch (event)
		{
	case 0:
		_ZN7trafficL4stepERNS_8CrossingE(crossing);
		return;
	case 1:
		if ((crossing->f0) != 5)
			{
			crossing->f2 = 1;
			if ((crossing->f0) == 1 && (crossing->f1) > 5)
				{
				crossing->f1 = 5;
				}
			}
		return;
	case 2:
		crossing->f3 = (crossing->f3) == 0;
		return;
	default:
		_ZN7trafficL5enterERNS_8CrossingENS_5StateE(crossing, 0);
		return;
		}
	return;
	}
// calls: _ZN7trafficL4stepERNS_8CrossingE, _ZN7trafficL5enterERNS_8CrossingENS_5StateE, 

static void _ZN7trafficL4stepERNS_8CrossingE(struct traffic__Crossing *crossing)
	{
	if ((crossing->f1 = (crossing->f1) - 1) > 0)
		{
		return;
		}
	_ZN7trafficL5enterERNS_8CrossingENS_5StateE(crossing, (_ZN7trafficL6phasesE[crossing->f0].f2)(crossing));
	return;
	}
// calls: _ZN7trafficL5enterERNS_8CrossingENS_5StateE, 

static void _ZN7trafficL5enterERNS_8CrossingENS_5StateE(struct traffic__Crossing *crossing, int state)
	{
	if (state == 0)
		{
		crossing->f4 = (crossing->f4) + 1;
		}
	if (state == 5)
		{
		crossing->f2 = 0;
		}
	crossing->f0 = state;
	crossing->f1 = _ZN7trafficL6phasesE[state].f1;
	if ((crossing->f3) && (crossing->f1) > 10)
		{
		crossing->f1 = 10;
		}
	return;
	}

char lamps(void)
	{
	return _ZN7trafficL6phasesE[_ZL8crossing.f0].f0;
	}

void simulate(char *events)
	{
	char c;
	int event;

	for (;;)
		{
		c = *events++;
		if (c == 0)
			{
			return;
			}
		event = 0;
		if (((signed char )c) == 98)
			{
			event = 1;
			}
		else
			{
			if (((signed char )c) == 110)
				{
				event = 2;
				}
			else
				{
				if (((signed char )c) == 33)
					{
					event = 3;
					}
				}
			}
		_ZN7traffic6handleERNS_8CrossingENS_5EventE(&_ZL8crossing, event);
		}
	return;
	}
// calls: _ZN7traffic6handleERNS_8CrossingENS_5EventE, 

static int _ZN7trafficL9after_redERKNS_8CrossingE(struct traffic__Crossing *crossing)
	{
	return (crossing->f2) ? 5 : 1;
	}

static int _ZN7trafficL11after_northERKNS_8CrossingE(struct traffic__Crossing *_unused0_)
	{
	return 2;
	}

static int _ZN7trafficL18after_north_yellowERKNS_8CrossingE(struct traffic__Crossing *_unused0_)
	{
	return 3;
	}

static int _ZN7trafficL10after_eastERKNS_8CrossingE(struct traffic__Crossing *_unused0_)
	{
	return 4;
	}

static int _ZN7trafficL6to_redERKNS_8CrossingE(struct traffic__Crossing *_unused0_)
	{
	return 0;
	}

