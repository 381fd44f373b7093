// quarl V4.1.6
// source file: tasks.c

/*	structures definitions
 */
union payload {
	long f0;
	};

struct task {
	struct task *f0;
	long f1;
	void (*f2)(struct task *);
	union payload f3;
	int f4;
	};

struct unnamed_1 {
	struct task *f0;
	long f1;
	void (*f2)(struct task *);
	union payload f3;
	char f4;
	char f5;
	};


/*	externs definitions
 */
void schedule(struct task *, long );	//count=4
int cancel(struct task *);	//count=2
int run_until(long );	//count=2
static void sum_bytes(struct task *);	//count=1

/*	variables definitions
 */
static struct task *queue;	// count=6
static long now = 0;	// count=3
struct unnamed_1 housekeeping;
static struct unnamed_1 housekeeping = {0, 0, &sum_bytes, {16909060}, 1, 0};	// count=4

/*	functions definitions
 */
void schedule(struct task *task, long delay)
	{
	struct task **place;

	place = &queue;
	task->f1 = now + delay;
	while ((*place) != 0 && (((unsigned long )((struct task *)*place)->f1) < ((unsigned long )task->f1) || ((((struct task *)*place)->f1) == (task->f1) && ((((unsigned int )task->f4) >> 1) & 1) == 0)))
		{
		place = &((struct task *)*place)->f0;
		}
	task->f0 = *place;
	*place = task;
	return;
	}

int cancel(struct task *task)
	{
	struct task **place;

	for (place = &queue; (*place) != 0; place = &((struct task *)*place)->f0)
		{
		if ((*place) == task)
			{
			*place = task->f0;
			return 1;
			}
		}
	return 0;
	}

int run_until(long time)
	{
	int count;
	struct task *task;

	count = 0;
	while (queue != 0 && ((unsigned long )queue->f1) <= ((unsigned long )time))
		{
		task = queue;
		queue = task->f0;
		now = task->f1;
		task->f4 = ((task->f4) & 3) | ((((((unsigned int )task->f4) >> 2) + 1) & 16383) << 2);
		(task->f2)(task);
		if (((task->f4) & 1) != 0)
			{
			schedule(task, 100);
			}
		count = count + 1;
		}
	now = time;
	return count;
	}
// calls: schedule, 

long demo(void)
	{
	schedule((struct task *)(&housekeeping), 50);
	run_until(400);
	cancel((struct task *)(&housekeeping));
	return (((struct task *)(&housekeeping))->f3.f0) + ((long )(unsigned int )(((unsigned int )((struct task *)(&housekeeping))->f4) >> 2));
	}
// calls: schedule, run_until, cancel, 

static void sum_bytes(struct task *task)
	{
	int sum;
	int i;

	sum = 0;
	for (i = 0; i < 4; i = i + 1)
		{
		sum = sum + ((char )(*((char (*)[4])(&task->f3)))[i]);
		}
	*((long *)(&task->f3)) = (int )sum;
	return;
	}

