/* Tasks by time, in C: a list that is kept in order, function pointers, a union, bit fields. */

typedef unsigned char byte;

union payload {
    long number;
    byte bytes[4];
    const char *text;
};

struct task {
    struct task *next;
    unsigned long due;
    void (*run)(struct task *);
    union payload payload;
    unsigned repeat : 1;
    unsigned urgent : 1;
    unsigned runs : 14;
};

static struct task *queue;
static unsigned long now;

void schedule(struct task *task, unsigned long delay)
{
    struct task **place = &queue;
    task->due = now + delay;
    while (*place && ((*place)->due < task->due || ((*place)->due == task->due && !task->urgent)))
        place = &(*place)->next;
    task->next = *place;
    *place = task;
}

int cancel(struct task *task)
{
    struct task **place;
    for (place = &queue; *place; place = &(*place)->next) {
        if (*place == task) {
            *place = task->next;
            return 1;
        }
    }
    return 0;
}

int run_until(unsigned long time)
{
    int count = 0;
    while (queue && queue->due <= time) {
        struct task *task = queue;
        queue = task->next;
        now = task->due;
        task->runs++;
        task->run(task);
        if (task->repeat)
            schedule(task, 100);
        count++;
    }
    now = time;
    return count;
}

static void sum_bytes(struct task *task)
{
    int sum = 0;
    int i;
    for (i = 0; i < 4; i++)
        sum += task->payload.bytes[i];
    task->payload.number = sum;
}

static struct task housekeeping = {0, 0, sum_bytes, {0x01020304}, 1, 0, 0};

long demo(void)
{
    schedule(&housekeeping, 50);
    run_until(400);
    cancel(&housekeeping);
    return housekeeping.payload.number + housekeeping.runs;
}
